#include "skin/config_preview.h"

#include "core/store/style_form.h"
#include "skin/piece_sizes.h"

#include <utility>

namespace paneda {

namespace {

constexpr int kButtonsPerRow = 5;
constexpr int kCell = 75; // twips of the squares where the skin is transparent
// Twice as high as a usual preview. The bars of a stranger's skin may be higher than any screen.
constexpr ScreenMetrics kScreen{PixelsToTwips(800), PixelsToTwips(600), PixelsToTwips(600), 0};

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

// The skin without its frame.
ThemeState Inside(ThemeState theme) {
    const SkinPieces all = std::exchange(theme.Pieces, {});
    theme.Pieces.Back = all.Back;
    theme.Pieces.Group = all.Group;
    theme.Pieces.Category = all.Category;
    theme.Pieces.CategoryActive = all.CategoryActive;
    theme.Pieces.ButtonBig = all.ButtonBig;
    theme.Pieces.ButtonSmall = all.ButtonSmall;
    return theme;
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
    : theme_(Inside(skin))
    , sizes_(MeasurePieces(theme_))
    , catalogue_(Samples())
    , geometry_(Lay(catalogue_, sizes_))
    , drives_(DriveMap::FromMountPoints({}))
    , sources_{icons_, drives_, {}, kButtonsPerRow} {}

QSize ConfigPreview::Size() const {
    return {TwipsToPixels(geometry_.PanelWidth), TwipsToPixels(geometry_.PanelHeight)};
}

QImage ConfigPreview::DrawConfigPreview(const ThemeState& look, double ratio) {
    theme_ = Inside(look);
    if (ratio != ratio_) {
        painter_.reset();
        tools_ = std::make_unique<PaintTools>(theme_, fonts_, Canvas{Size(), ratio});
        painter_ = std::make_unique<PanelPainter>(PanelScene{catalogue_, geometry_, sizes_, {}, ratio},
                                                  *tools_, sources_);
        ratio_ = ratio;
    }
    DrawingSurface panel(painter_->PaintBase(0), ratio);
    painter_->DrawBarTitles(panel, 0);
    DrawingSurface surface(Size(), ratio);
    surface.DrawCheckerBackdrop({0, 0, geometry_.PanelWidth, geometry_.PanelHeight}, kCell);
    surface.DrawPictureAt({panel.Image(), ratio}, 0, 0, DrawMode::Over);
    QImage image = surface.Image();
    image.setDevicePixelRatio(ratio);
    return image;
}

} // namespace paneda
