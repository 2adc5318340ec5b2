#include "ui/panel/skinned_panel_look.h"

#include "core/store/store_layout.h"
#include "skin/button_label.h"
#include "skin/frame_geometry.h"
#include "skin/picture_cache.h"
#include "ui/panel/button_icons.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>

namespace paneda {

namespace {

class FileIconSource : public IconSource {
public:
    FileIconSource(const AppState& state, FileIcons& icons) : state_(state), icons_(icons) {}

    QImage Icon(const QString& path, int pixels) override {
        return icons_.IconOf(path, {state_.Drives, state_.AppPath}, pixels);
    }

private:
    const AppState& state_;
    FileIcons& icons_;
};

// Pictures of an older look or store must not be taken for those of the present one.
void DropPictures(const QString& folder) {
    static const QRegularExpression picture(QStringLiteral("^category[0-9]+a?\\.png$"));
    for (const QString& name : ListFiles(folder)) {
        if (name.contains(picture))
            QFile::remove(folder + u'/' + name);
    }
}

QString LogoFile(const ThemeState& theme) {
    return QStringLiteral(":/logo/logo%1.png").arg(theme.LogoDesign);
}

} // namespace

// Everything that composing pictures takes, held together while it is needed.
class SkinnedPanelLook::Composition {
public:
    explicit Composition(SkinnedPanelLook& look)
        : sizes_(MeasurePieces(look.theme_))
        , tools_(look.theme_, look.fonts_)
        , icons_(look.state_, look.icons_)
        , sources_{icons_, look.state_.Drives, look.state_.AppPath, look.geometry_->ButtonsPerRow}
        , painter_({look.state_.Catalogue, *look.geometry_, sizes_, QImage(LogoFile(look.theme_))}, tools_,
                   sources_) {}

    PanelPainter& Painter() { return painter_; }

private:
    PieceSizes sizes_;
    PaintTools tools_;
    FileIconSource icons_;
    ButtonSources sources_;
    PanelPainter painter_;
};

SkinnedPanelLook::SkinnedPanelLook(const AppState& state, ThemeState theme, const CacheRecord* cache,
                                   FileIcons& icons, DriveSpace& space)
    : state_(state)
    , theme_(std::move(theme))
    , icons_(icons)
    , space_(space)
    , folder_(CacheFolder(state.AppFolder))
    , sizes_(cache ? PieceSizesOf(*cache) : MeasurePieces(theme_)) {
    if (!cache)
        DropPictures(folder_);
}

SkinnedPanelLook::~SkinnedPanelLook() = default;

PanelMetrics SkinnedPanelLook::Metrics() const {
    return PanelMetricsOf(sizes_);
}

void SkinnedPanelLook::SetGeometry(const PanelGeometry& geometry) {
    geometry_ = &geometry;
}

QSize SkinnedPanelLook::WindowSize() const {
    return {TwipsToPixels(geometry_->PanelWidth), TwipsToPixels(geometry_->PanelHeight)};
}

QImage SkinnedPanelLook::LoadFitting(int category) const {
    QImage picture = LoadCategoryPicture(folder_, ShownPicture(category), PictureKind::Finished);
    return picture.size() == WindowSize() ? picture : QImage();
}

QImage SkinnedPanelLook::Picture(int category) {
    const QImage picture = category < 0 ? QImage() : LoadFitting(category);
    return picture.isNull() ? Compose(category) : picture;
}

QImage SkinnedPanelLook::Compose(int category) {
    if (!composition_)
        composition_ = std::make_unique<Composition>(*this);
    PanelPainter& painter = composition_->Painter();
    if (category < 0)
        return painter.PaintFrame();
    // Ignored: what cannot be kept is composed again.
    std::vector<FileError> failures;
    const QImage picture = BuildCategoryPicture(painter, category, folder_, failures);
    if (category > 0)
        return picture;
    DrawingSurface surface(picture);
    RefreshDrives();
    PaintTools tools(theme_, fonts_);
    for (const DriveState& drive : drives_)
        DrawDrive(surface, drive.Button, drive.Info, tools);
    return surface.Image();
}

QRect SkinnedPanelLook::HideArea() const {
    const FrameGeometry frame = DisplayBorder(sizes_, {geometry_->PanelWidth, geometry_->PanelHeight});
    return ToPixels(paneda::HideArea(frame, theme_));
}

QRect SkinnedPanelLook::MenuArea() const {
    const FrameGeometry frame = DisplayBorder(sizes_, {geometry_->PanelWidth, geometry_->PanelHeight});
    return ToPixels(paneda::MenuArea(frame, theme_));
}

QRect SkinnedPanelLook::LogoArea() const {
    const FrameGeometry frame = DisplayBorder(sizes_, {geometry_->PanelWidth, geometry_->PanelHeight});
    const QSize logo = QImageReader(LogoFile(theme_)).size();
    return ToPixels(
        paneda::LogoArea(frame, theme_, {PixelsToTwips(logo.width()), PixelsToTwips(logo.height())}));
}

void SkinnedPanelLook::RefreshDrives() {
    drives_.clear();
    for (const PlacedDrive& button : DriveButtonsOf(state_.Catalogue, *geometry_, state_.AppPath)) {
        const VolumeSpace space =
            space_.SpaceOf(state_.Drives.RootOf(button.Drive.isEmpty() ? QChar() : button.Drive[0]));
        drives_.push_back({button, {space.Label, space.TotalBytes, space.FreeBytes}});
    }
    PaintTools tools(theme_, fonts_);
    // Ignored, as in Compose.
    (void)RefleshPanel(folder_, drives_, tools);
}

QString SkinnedPanelLook::DriveTip(int controlIndex) const {
    for (const DriveState& drive : drives_) {
        if (drive.Button.ControlIndex == controlIndex)
            return DriveToolTip(drive.Button.Drive, drive.Info);
    }
    return {};
}

bool SkinnedPanelLook::CutsLabel(const ButtonEntry& button, const QSize& size) {
    const TwipsRect box{0, 0, PixelsToTwips(size.width()), PixelsToTwips(size.height())};
    return ButtonLabel(DecodeStyle(button.Style), CaptionOf(button), box, theme_, fonts_).IsCut();
}

bool SkinnedPanelLook::PrepareNext() {
    const int count = int(state_.Catalogue.size());
    while (next_ < count) {
        const int category = next_++;
        const QString file = CategoryPictureName(ShownPicture(category), PictureKind::Finished);
        if (QFileInfo::exists(folder_ + u'/' + file))
            continue;
        Compose(category);
        return true;
    }
    composition_.reset();
    return false;
}

} // namespace paneda
