#include "ui/panel/skinned_panel_look.h"

#include "core/store/store_layout.h"
#include "skin/button_label.h"
#include "skin/piece_sizes.h"
#include "skin/skin_folder.h"

#include <QDir>
#include <QImageReader>

namespace paneda {

namespace {

QString LogoFile(const ThemeState& theme) {
    return QStringLiteral(":/logo/logo%1.png").arg(theme.LogoDesign);
}

PictureRecord RecordOf(const ThemeState& theme) {
    // The stamp is taken first. If a file changes while the pictures are read, the next start sees a
    // different stamp and reads them again.
    const quint64 stamp = SkinStamp(theme.SkinPath);
    return {QDir(theme.SkinPath).dirName(), stamp, MeasurePieces(theme), {}};
}

bool IsOfSkin(const PictureRecord* cached, const ThemeState& theme) {
    return cached && cached->Skin == QDir(theme.SkinPath).dirName();
}

} // namespace

QImage SkinnedPanelLook::FileIconSource::Icon(const QString& path, const IconSize& size) {
    return icons_.IconOf(path, {state_.Drives, state_.AppPath}, size);
}

SkinnedPanelLook::SkinnedPanelLook(const AppState& state, ThemeState theme, const PictureRecord* cached,
                                   FileIcons& icons, DriveSpace& space)
    : state_(state)
    , theme_(std::move(theme))
    , icons_(state, icons)
    , drives_(state, space)
    , usesFiles_(IsOfSkin(cached, theme_))
    , record_(usesFiles_ ? *cached : RecordOf(theme_)) {}

PanelMetrics SkinnedPanelLook::Metrics() const {
    return PanelMetricsOf(record_.Sizes);
}

void SkinnedPanelLook::SetGeometry(const PanelGeometry& geometry) {
    const TwipsSize window{geometry.PanelWidth, geometry.PanelHeight};
    const bool keeps = usesFiles_ && record_.Window == window;
    record_.Window = window;
    frame_ = DisplayBorder(record_.Sizes, window);
    pictures_ = std::make_unique<CategoryPictures>(
        CacheFolder(state_.AppFolder),
        PictureSources{theme_, fonts_, state_.Catalogue, geometry, record_.Sizes, icons_, state_.Drives,
                       state_.AppPath, LogoFile(theme_),
                       [this, &geometry] { return drives_.Read(geometry); }},
        keeps ? CategoryPictures::Files::Keep : CategoryPictures::Files::Drop);
    pictures_->SetRatio(ratio_);
}

void SkinnedPanelLook::SetRatio(double ratio) {
    ratio_ = ratio;
    pictures_->SetRatio(ratio);
}

QImage SkinnedPanelLook::Picture(int category) {
    QImage picture = pictures_->Picture(category);
    picture.setDevicePixelRatio(ratio_);
    return picture;
}

std::vector<QRect> SkinnedPanelLook::FrameAreas() const {
    std::vector<QRect> areas;
    for (const TwipsRect& piece :
         {frame_.TopA, frame_.BottomA, frame_.LeftA, frame_.RightA, frame_.TopLeft, frame_.TopRight,
          frame_.BottomLeft, frame_.BottomRight, frame_.TopB, frame_.BottomB, frame_.LeftB, frame_.RightB,
          frame_.Top, frame_.Left, frame_.Right, frame_.Bottom})
        areas.push_back(ToPixels(piece));
    return areas;
}

QRect SkinnedPanelLook::HideArea() const {
    return ToPixels(paneda::HideArea(frame_, theme_));
}

QRect SkinnedPanelLook::MenuArea() const {
    return ToPixels(paneda::MenuArea(frame_, theme_));
}

QRect SkinnedPanelLook::LogoArea() const {
    const QSize logo = QImageReader(LogoFile(theme_)).size();
    return ToPixels(
        paneda::LogoArea(frame_, theme_, {PixelsToTwips(logo.width()), PixelsToTwips(logo.height())}));
}

void SkinnedPanelLook::RefreshDrives() {
    pictures_->RefleshPanel();
}

void SkinnedPanelLook::RedrawBarTitles() {
    // Ignored: a picture that is not on file is composed when it is shown.
    (void)pictures_->RedrawBarTitles();
}

bool SkinnedPanelLook::CutsLabel(const ButtonEntry& button, const QSize& size) {
    const TwipsRect box{0, 0, PixelsToTwips(size.width()), PixelsToTwips(size.height())};
    return ButtonLabel(DecodeStyle(button.Style), CaptionOf(button), box, theme_, fonts_).IsCut(ratio_);
}

} // namespace paneda
