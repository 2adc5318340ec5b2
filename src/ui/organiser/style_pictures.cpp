#include "ui/organiser/style_pictures.h"

#include "core/store/style_form.h"
#include "ui/panel/skin_choice.h"

#include <algorithm>
#include <array>

namespace paneda {

namespace {

constexpr int kCell = 75;   // twips of the squares behind the buttons
constexpr int kMargin = 90; // twips around the templates, and between them

// The templates in two rows, those of full height above those of half.
constexpr std::array<std::array<int, 6>, 2> kRows{{{0, 1, 2, 5, 6, 7}, {3, 4, 8, -1, -1, -1}}};

TwipsRect Whole(const TwipsSize& size) {
    return {0, 0, size.Width, size.Height};
}

DrawingSurface Ground(const TwipsSize& size, double ratio) {
    DrawingSurface surface(QSize(TwipsToPixels(size.Width), TwipsToPixels(size.Height)), ratio);
    surface.DrawCheckerBackdrop(Whole(size), kCell);
    return surface;
}

QImage Finished(const DrawingSurface& surface) {
    QImage image = surface.Image();
    image.setDevicePixelRatio(surface.Ratio());
    return image;
}

} // namespace

QImage StylePictures::Icons::Icon(const QString& path, const IconSize& size) {
    const std::pair key(path, size.OnScreen());
    const auto known = read_.constFind(key);
    if (known != read_.constEnd())
        return *known;
    return *read_.insert(key, icons_.IconOf(path, {state_.Drives, state_.AppPath}, size));
}

StylePictures::StylePictures(const AppState& state, FileIcons& icons, const QString& button)
    : state_(state)
    , button_(button)
    , theme_(ChooseSkin(state.AppFolder, state.SkinName).Theme.value_or(ThemeState()))
    , icons_(state, icons) {}

ButtonSpec StylePictures::Spec(const QString& style, const QString& caption) const {
    ButtonSpec spec;
    spec.Style = style;
    spec.Target = button_;
    spec.Caption = caption;
    spec.LimitWidth = false;
    spec.PreviewWallpaper = true;
    return spec;
}

// New for each picture: the button's own picture may have changed, and each has its time for decoding.
ButtonSources StylePictures::Sources() {
    return {icons_, state_.Drives, state_.AppPath, state_.ButtonsPerRow};
}

PaintTools& StylePictures::Tools(double ratio) {
    if (!tools_ || ratio != ratio_) {
        const QSize most(TwipsToPixels(std::max(kTemplates.Width, kPreview.Width)),
                         TwipsToPixels(std::max(kTemplates.Height, kPreview.Height)));
        tools_ = std::make_unique<PaintTools>(theme_, fonts_, Canvas{most, ratio});
        ratio_ = ratio;
    }
    return *tools_;
}

TwipsRect StylePictures::TemplatePlace(std::size_t index) {
    TwipsRect place{0, kMargin, 0, 0};
    for (const auto& row : kRows) {
        place.Left = kMargin;
        for (const int i : row) {
            if (i < 0)
                continue;
            const TwipsSize size =
                ButtonSize(Spec(QLatin1String(kStyleTemplates[std::size_t(i)].Style), {}), Sources());
            place.Width = size.Width;
            place.Height = size.Height;
            if (std::size_t(i) == index)
                return place;
            place.Left += size.Width + kMargin;
        }
        place.Top += place.Height + kMargin;
    }
    return place;
}

QImage StylePictures::Templates(double ratio) {
    DrawingSurface surface = Ground(kTemplates, ratio);
    for (std::size_t i = 0; i < kStyleTemplates.size(); ++i) {
        ButtonSpec spec =
            Spec(QLatin1String(kStyleTemplates[i].Style), QLatin1String(kStyleTemplates[i].Caption));
        const TwipsRect place = TemplatePlace(i);
        spec.Left = place.Left;
        spec.Top = place.Top;
        ButtonSources sources = Sources();
        PaintButton(surface, spec, Tools(ratio), sources);
    }
    return Finished(surface);
}

QImage StylePictures::Preview(const QString& style, const QString& caption, double ratio) {
    DrawingSurface surface = Ground(kPreview, ratio);
    ButtonSpec spec = Spec(style, caption);
    ButtonSources sources = Sources();
    const TwipsSize size = ButtonSize(spec, sources);
    spec.Left = (kPreview.Width - size.Width) / 2;
    spec.Top = (kPreview.Height - size.Height) / 2;
    PaintButton(surface, spec, Tools(ratio), sources);
    return Finished(surface);
}

} // namespace paneda
