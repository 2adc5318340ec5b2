#include "skin/panel_painter.h"

#include "core/store/names.h"
#include "skin/font_size.h"

#include <utility>

namespace paneda {

namespace {

constexpr int kTitleIndent = 60; // twips, at both ends

// A file that a user dropped into the store has no style tag; it shows its icon, as big as the button.
const QString kUntaggedStyle = QStringLiteral("11113001100");

ButtonSpec SpecOf(const ButtonEntry& button, const TwipsRect& place) {
    ButtonSpec spec;
    const bool isDrive = !button.Spare.isEmpty();
    spec.Style = button.Style.isEmpty() && !isDrive ? kUntaggedStyle : button.Style;
    // A drive has no file of its own.
    spec.Target = isDrive ? QString() : button.Path;
    spec.Caption = CaptionOf(button);
    spec.Left = place.Left;
    spec.Top = place.Top;
    return spec;
}

} // namespace

PanelPainter::PanelPainter(PanelScene scene, PaintTools& tools, ButtonSources& sources)
    : scene_(std::move(scene))
    , tools_(tools)
    , sources_(sources)
    , window_{scene_.Geometry.PanelWidth, scene_.Geometry.PanelHeight}
    , frame_(DisplayBorder(scene_.Sizes, window_)) {}

const QImage& PanelPainter::PaintFrame() {
    if (!paintedFrame_.isNull())
        return paintedFrame_;
    DrawingSurface surface(QSize(TwipsToPixels(window_.Width), TwipsToPixels(window_.Height)), scene_.Ratio);
    PaintEdges(surface);
    PaintCorners(surface);
    PaintCentres(surface);
    const ThemeState& theme = tools_.Theme;
    surface.DrawPicture(tools_.Pictures.GetWhole(theme.Pieces.Back), frame_.Inner,
                        {.Method = theme.BackMethod, .Alignment = theme.BackAlignment});
    PaintBottom(surface);
    // In a narrow window the logo ends where the bottom piece does, at the frame.
    const TwipsRect logo = LogoArea(frame_, theme, {});
    surface.DrawIcon(scene_.Logo, {logo.Left, logo.Top, frame_.Inner.Right() - logo.Left, window_.Height});
    paintedFrame_ = surface.Image();
    return paintedFrame_;
}

void PanelPainter::PaintEdges(DrawingSurface& surface) {
    const SkinPieces& pieces = tools_.Theme.Pieces;
    surface.DrawPicture(tools_.Piece(pieces.TopA), frame_.TopA);
    surface.DrawPicture(tools_.Piece(pieces.BottomA), frame_.BottomA);
    surface.DrawPicture(tools_.Piece(pieces.LeftA), frame_.LeftA);
    surface.DrawPicture(tools_.Piece(pieces.RightA), frame_.RightA);
}

void PanelPainter::PaintCorners(DrawingSurface& surface) {
    const SkinPieces& pieces = tools_.Theme.Pieces;
    surface.DrawPictureAt(tools_.Piece(pieces.TopLeft), frame_.TopLeft.Left, frame_.TopLeft.Top);
    surface.DrawPictureAt(tools_.Piece(pieces.TopRight), frame_.TopRight.Left, frame_.TopRight.Top);
    surface.DrawPictureAt(tools_.Piece(pieces.BottomLeft), frame_.BottomLeft.Left, frame_.BottomLeft.Top);
    surface.DrawPictureAt(tools_.Piece(pieces.BottomRight), frame_.BottomRight.Left, frame_.BottomRight.Top);
}

void PanelPainter::PaintCentres(DrawingSurface& surface) {
    const SkinPieces& pieces = tools_.Theme.Pieces;
    surface.DrawPicture(tools_.Piece(pieces.TopB), frame_.TopB);
    surface.DrawPicture(tools_.Piece(pieces.BottomB), frame_.BottomB);
    surface.DrawPicture(tools_.Piece(pieces.LeftB), frame_.LeftB);
    surface.DrawPicture(tools_.Piece(pieces.RightB), frame_.RightB);
    surface.DrawPicture(tools_.Piece(pieces.Top), frame_.Top);
    surface.DrawPicture(tools_.Piece(pieces.Left), frame_.Left);
    surface.DrawPicture(tools_.Piece(pieces.Right), frame_.Right);
}

// Cut at the right margin when the window is narrower than the piece.
void PanelPainter::PaintBottom(DrawingSurface& surface) {
    surface.DrawPicture(tools_.Piece(tools_.Theme.Pieces.Bottom), frame_.Bottom);
}

QImage PanelPainter::PaintBase(int category) {
    DrawingSurface surface(PaintFrame(), scene_.Ratio);
    // The window of the tree is seen through the panel's.
    if (scene_.Catalogue[std::size_t(category)].IsTree())
        surface.ClearRect(frame_.Inner);
    PaintContent(surface, category);
    PaintBars(surface, category);
    return surface.Image();
}

void PanelPainter::PaintContent(DrawingSurface& surface, int category) {
    const CategoryEntry& entry = scene_.Catalogue[std::size_t(category)];
    const CategoryGeometry& placed = scene_.Geometry.Categories[std::size_t(category)];
    const OpenedCategory opened = OpenCategory(scene_.Geometry, category);
    for (const int group : opened.Headers)
        PaintHeader(surface, entry.Groups[std::size_t(group)], placed.Groups[std::size_t(group)].Header,
                    entry.IsTree());
    for (const auto& [group, button] : opened.Buttons) {
        const ButtonEntry& shown = entry.Groups[std::size_t(group)].Buttons[std::size_t(button)];
        const TwipsRect& place = placed.Groups[std::size_t(group)].Buttons[std::size_t(button)].Rect;
        PaintButton(surface, SpecOf(shown, place), tools_, sources_);
    }
}

void PanelPainter::PaintHeader(DrawingSurface& surface, const GroupEntry& group, const TwipsRect& box,
                               bool ofTree) {
    const ThemeState& theme = tools_.Theme;
    if (!ofTree)
        surface.DrawPicture(tools_.Piece(theme.Pieces.Group), box, {.Mode = theme.GroupDrawMode});
    DrawTitle(surface, TitleBehindPrefix(group.FolderName), box, theme.GroupFont, theme.GroupColor);
}

void PanelPainter::PaintBars(DrawingSurface& surface, int category) {
    const ThemeState& theme = tools_.Theme;
    for (std::size_t i = 0; i < scene_.Geometry.Categories.size(); ++i) {
        const QString& piece = int(i) == category ? theme.Pieces.CategoryActive : theme.Pieces.Category;
        surface.DrawPicture(tools_.Piece(piece), scene_.Geometry.Categories[i].Bar,
                            {.Mode = theme.CategoryDrawMode});
    }
}

void PanelPainter::DrawBarTitles(DrawingSurface& surface, int category) {
    const ThemeState& theme = tools_.Theme;
    for (std::size_t i = 0; i < scene_.Geometry.Categories.size(); ++i) {
        const bool active = int(i) == category;
        DrawTitle(surface, BarTitle(scene_.Catalogue[i]), scene_.Geometry.Categories[i].Bar,
                  active ? theme.CategoryActiveFont : theme.CategoryInactiveFont,
                  active ? theme.CategoryActiveColor : theme.CategoryInactiveColor);
    }
}

void PanelPainter::DrawTitle(DrawingSurface& surface, const QString& title, const TwipsRect& box,
                             const SkinFont& font, const SkinColor& color) {
    LabelStyle label;
    label.Font.Family = tools_.Fonts.Family(font.Name);
    label.Font.EmSize = FontPixelSize(font.Size);
    label.Font.Bold = font.Bold;
    label.Font.AntiAlias = font.AntiAlias;
    label.Color = HexToArgb(color.Hex);
    label.AtColumn = AlignColumn(font.Alignment);
    label.AtRow = AlignRow(font.Alignment);
    label.KeepVertical = true;
    label.ShrinkToFit = true;
    surface.DrawLabel(title, {box.Left + kTitleIndent, box.Top, box.Width - 2 * kTitleIndent, box.Height},
                      label);
}

} // namespace paneda
