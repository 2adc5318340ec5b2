#include "ui/notes/tree_look.h"

#include "core/text/twips.h"
#include "notes/tree_geometry.h"
#include "notes/tree_model.h"
#include "skin/drawing_surface.h"
#include "skin/font_choice.h"
#include "skin/font_size.h"
#include "skin/skin_file.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

constexpr Argb kBlack = 0xFF000000;
constexpr int kSide = 16; // layout pixels of a sign

QColor ColourOf(const QString& hex) {
    return QColor::fromRgba(HexToArgb(hex));
}

QString Printed(const QString& name) {
    QString printed = u' ' + name + u' ';
    // What ends a line would hide the rest of the name.
    for (QChar& c : printed) {
        if (c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return printed;
}

TextFont RowFont(const TreeLook& look) {
    constexpr int kPoints = 8;
    return {.Family = look.Family, .EmSize = FontPixelSize(kPoints)};
}

TextFont NumberFont(const TreeLook& look) {
    constexpr int kPoints = 6;
    return {.Family = look.SmallFamily,
            .EmSize = PrintedPixelSize(kPoints),
            .Bold = true,
            .AntiAlias = false,
            .SmoothOnceLarge = true};
}

QColor Blend(const QColor& a, const QColor& b, double part) {
    const auto mix = [part](int from, int to) { return int(from + (to - from) * part); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

// A line, or points, below the text: what a press on it would start.
void UnderlineStrip(DrawingSurface& surface, const StripWish& wish, const QColor& color, bool isDotted) {
    constexpr int kTop = 14 * kTwipsPerPixel;
    constexpr int kSideRoom = 5 * kTwipsPerPixel;
    constexpr int kDot = 2 * kTwipsPerPixel;
    const int right = wish.Width - (wish.Change ? kIndicatorRoom : 0) - 3 * kTwipsPerPixel;
    for (int x = kSideRoom; x < right; x += isDotted ? 2 * kDot : right)
        surface.FillRect(color.rgba(), {x, kTop, isDotted ? kDot : right - x, kTwipsPerPixel});
}

void DrawGround(DrawingSurface& surface, const StripWish& wish, const TreeLook& look, const QColor& ground,
                const QColor& text) {
    const bool isUrl = wish.Node.Type == kUrlNode;
    if (!isUrl && wish.Node.Type != kFileNode)
        return;
    const QPixmap own = ForRatio(isUrl ? look.Favorite : look.Shortcut, surface.Ratio());
    constexpr double kFaint = 0.45;
    if (own.isNull()) {
        UnderlineStrip(surface, wish, Blend(ground, text, kFaint), isUrl);
        return;
    }
    QImage picture = own.toImage();
    // Painters would scale by it once more.
    picture.setDevicePixelRatio(1);
    surface.DrawIcon({std::move(picture), own.devicePixelRatio()}, {0, 0, wish.Width, TreeModel::RowHeight});
}

void DrawIndicator(DrawingSurface& surface, const StripWish& wish, const TreeLook& look) {
    const IndicatorPlace place = PlaceOfIndicator(wish.IndicatorLeft, wish.Change->Number);
    surface.FillRect(kBlack, place.Border);
    surface.FillRect(RecentChangeColor(wish.Change->Unit) | kBlack, place.Box);
    surface.PrintLine(QString::number(wish.Change->Number), place.NumberLeft, place.NumberTop, place.Border,
                      NumberFont(look), kBlack);
}

QImage Blank(double ratio) {
    const int side = IconSize(kSide, ratio).OnScreen();
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    return image;
}

// A sheet of paper with a folded corner.
void DrawSheet(QPainter& painter) {
    QPainterPath sheet;
    sheet.addPolygon(QPolygonF({{2.5, 1.5}, {10, 1.5}, {13.5, 5}, {13.5, 14.5}, {2.5, 14.5}, {2.5, 1.5}}));
    painter.fillPath(sheet, QColor(0xFF, 0xFD, 0xF4));
    painter.setPen(QPen(QColor(0x6B, 0x75, 0x80), 1));
    painter.drawPath(sheet);
    painter.drawPolyline(QPolygonF({{9.5, 1.5}, {9.5, 5.5}, {13.5, 5.5}}));
}

void DrawNoteLines(QPainter& painter) {
    painter.setPen(QPen(QColor(0x8A, 0xA3, 0xBF), 1));
    for (const double y : {7.5, 9.5, 11.5})
        painter.drawLine(QPointF(4.5, y), QPointF(y > 11 ? 9 : 11.5, y));
}

void DrawArrow(QPainter& painter) {
    const QColor green(0x2E, 0x8B, 0x57);
    painter.setPen(QPen(green, 1.6));
    painter.drawPolyline(QPolygonF({{5, 13}, {5, 9.8}, {9, 9.8}}));
    QPainterPath head;
    head.addPolygon(QPolygonF({{8.6, 7}, {12, 9.8}, {8.6, 12.6}}));
    painter.fillPath(head, green);
}

void DrawGlobe(QPainter& painter) {
    const QPen line(QColor(0x35, 0x63, 0x8E), 1);
    painter.setPen(line);
    painter.setBrush(QColor(0xDC, 0xEB, 0xFA));
    painter.drawEllipse(QPointF(8, 8), 6.5, 6.5);
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(8, 8), 2.8, 6.5);
    painter.drawLine(QPointF(1.5, 8), QPointF(14.5, 8));
    painter.drawLine(QPointF(2.8, 4.5), QPointF(13.2, 4.5));
    painter.drawLine(QPointF(2.8, 11.5), QPointF(13.2, 11.5));
}

} // namespace

TreeLook LoadTreeLook(const QString& skinPath) {
    const TreeColors colors = ReadTreeColors(skinPath.isEmpty() ? IniText() : ReadSkinIni(skinPath));
    FontChoice fonts;
    return {.Background = ColourOf(colors.Background),
            .Label = ColourOf(colors.Label),
            .Highlight = ColourOf(colors.Highlight),
            .HighlightLabel = ColourOf(colors.HighlightLabel),
            .Shortcut = LoadSkinPicture(skinPath, "shortcut"),
            .Favorite = LoadSkinPicture(skinPath, "favorite"),
            .ScrollBar = LoadScrollBarPictures(skinPath),
            .Family = fonts.Family(QStringLiteral("Tahoma")),
            // The stand-ins of small fonts are broader than the box of two digits.
            .SmallFamily = fonts.Family(QStringLiteral("Tahoma"))};
}

double RowTextWidth(const QString& name, const TreeLook& look, double ratio) {
    return MeasureText(Printed(name), AtRatio(RowFont(look), ratio)) / ratio;
}

QImage PaintStrip(const StripWish& wish, const TreeLook& look, double ratio) {
    // What lies further to the right is never seen, and a name may be long.
    constexpr int kWidest = 4096;
    const QSize pixels(std::min(TwipsToPixels(wish.Width), kWidest), TwipsToPixels(TreeModel::RowHeight));
    const QColor& ground = wish.IsSelected ? look.Highlight : look.Background;
    const QColor& text = wish.IsSelected ? look.HighlightLabel : look.Label;
    DrawingSurface surface(pixels, ratio);
    const TwipsRect whole{0, 0, wish.Width, TreeModel::RowHeight};
    surface.FillRect(ground.rgba(), whole);
    DrawGround(surface, wish, look, ground, text);
    constexpr int kTextLeft = 30;
    surface.PrintLine(Printed(wish.Node.Name), kTextLeft, 0, whole, RowFont(look), text.rgba());
    if (wish.Change)
        DrawIndicator(surface, wish, look);
    return surface.Image();
}

QImage PaintNodeSign(NodeSign sign, double ratio) {
    QImage image = Blank(ratio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(image.width()) / kSide, double(image.height()) / kSide);
    if (sign == NodeSign::Favorite) {
        DrawGlobe(painter);
        return image;
    }
    DrawSheet(painter);
    if (sign == NodeSign::Shortcut)
        DrawArrow(painter);
    else
        DrawNoteLines(painter);
    return image;
}

QImage PaintBranchBox(bool isOpen, const TreeLook& look, double ratio) {
    QImage image = Blank(ratio);
    QPainter painter(&image);
    // Lines of whole device pixels around a middle that has as many on both sides.
    const int line = DeviceLength(1, ratio);
    constexpr int kHalf = 4;
    const int arm = DeviceEdge(kHalf, ratio);
    const int middle = (image.width() - line) / 2;
    const QRect box(middle - arm, middle - arm, 2 * arm + line, 2 * arm + line);
    constexpr double kFrame = 0.55;
    painter.fillRect(box, Blend(look.Background, look.Label, kFrame));
    painter.fillRect(box.adjusted(line, line, -line, -line), look.Background);
    const int reach = arm - 2 * line;
    painter.fillRect(QRect(middle - reach, middle, 2 * reach + line, line), look.Label);
    if (!isOpen)
        painter.fillRect(QRect(middle, middle - reach, line, 2 * reach + line), look.Label);
    return image;
}

} // namespace paneda
