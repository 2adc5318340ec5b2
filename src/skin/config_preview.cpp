#include "skin/config_preview.h"

#include "core/store/style_form.h"
#include "skin/piece_sizes.h"

namespace paneda {

namespace {

constexpr int kButtonsPerRow = 5;
constexpr int kCell = 75; // twips of the squares where the skin is transparent
// Large enough for every panel.
constexpr ScreenMetrics kScreen{range::kSide.Highest, range::kSide.Highest, range::kSide.Highest, 0};

// The last kind of button that a group is filled with, so that both answers of "each button decides" are
// seen: those of 9 points have the skin's ground.
ButtonEntry Sample(int points, bool bold, bool border) {
    StyleForm form;
    form.WidthCode = QChar(u'0' + kButtonsPerRow);
    form.HeightCode = u'0';
    form.Icon = false;
    form.LabelFont = points == 8 ? 3 : 4;
    form.Bold = bold;
    form.Border = border;
    form.LabelAlignment = 4;
    form.Background = points == 9;
    ButtonEntry button;
    button.Style = EncodeStyle(form);
    // As its file would be called.
    button.Path = QStringLiteral("[001] Size %1, %2%3 [%4].pnd")
                      .arg(QString::number(points), bold ? QStringLiteral("Bold") : QStringLiteral("Normal"),
                           border ? QStringLiteral(", Border") : QString(), button.Style);
    return button;
}

CatalogueList Samples() {
    GroupEntry group;
    group.FolderName = QStringLiteral("Group");
    for (const int points : {8, 9}) {
        for (const bool bold : {false, true}) {
            for (const bool border : {false, true})
                group.Buttons.push_back(Sample(points, bold, border));
        }
    }
    CategoryEntry active;
    active.FolderName = QStringLiteral("Category (A)");
    active.Groups.push_back(group);
    CategoryEntry inactive;
    inactive.FolderName = QStringLiteral("Category (I)");
    return {active, inactive};
}

PanelGeometry Lay(const CatalogueList& catalogue, const PieceSizes& sizes) {
    LayoutInput input;
    input.ButtonsPerRow = kButtonsPerRow;
    input.Metrics = PanelMetricsOf(sizes);
    input.Screen = kScreen;
    return LayoutPanel(catalogue, input);
}

} // namespace

ConfigPreview::ConfigPreview(const ThemeState& skin)
    : theme_(skin)
    , sizes_(MeasurePieces(skin))
    , catalogue_(Samples())
    , geometry_(Lay(catalogue_, sizes_))
    , drives_(DriveMap::FromMountPoints({}))
    , sources_{icons_, drives_, {}, kButtonsPerRow} {}

TwipsRect ConfigPreview::Inner() const {
    const FrameMargins& margins = geometry_.Metrics.Margins;
    return {margins.Left, margins.Top, geometry_.InnerWidth(),
            geometry_.PanelHeight - margins.Top - margins.Bottom};
}

QSize ConfigPreview::Size() const {
    return ToPixels(Inner()).size();
}

QImage ConfigPreview::DrawConfigPreview(const ThemeState& look, double ratio) {
    theme_ = look;
    if (ratio != ratio_) {
        painter_.reset();
        tools_ = std::make_unique<PaintTools>(
            theme_, fonts_,
            Canvas{{TwipsToPixels(geometry_.PanelWidth), TwipsToPixels(geometry_.PanelHeight)}, ratio});
        painter_ = std::make_unique<PanelPainter>(PanelScene{catalogue_, geometry_, sizes_, {}, ratio},
                                                  *tools_, sources_);
        ratio_ = ratio;
    }
    DrawingSurface panel(painter_->PaintBase(0), ratio);
    painter_->DrawBarTitles(panel, 0);
    const QImage inner = panel.Image().copy(DeviceRect(ToPixels(Inner()), ratio));
    DrawingSurface surface(Size(), ratio);
    surface.DrawCheckerBackdrop({0, 0, Inner().Width, Inner().Height}, kCell);
    surface.DrawPictureAt({inner, ratio}, 0, 0, DrawMode::Over);
    QImage image = surface.Image();
    image.setDevicePixelRatio(ratio);
    return image;
}

} // namespace paneda
