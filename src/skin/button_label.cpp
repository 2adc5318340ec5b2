#include "skin/button_label.h"

#include "core/text/text_rules.h"
#include "skin/font_size.h"
#include "skin/sharp_label.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace paneda {

namespace {

constexpr int kSmoothExtra = 45; // twips that a smooth label may reach beyond its room

// Width of a text on a screen, in pixels of the layout.
double WidthAt(const QString& text, const TextFont& font, double ratio) {
    return MeasureText(text, AtRatio(font, ratio)) / ratio;
}

} // namespace

ButtonLabel::ButtonLabel(const ButtonStyle& style, QString caption, const TwipsRect& box,
                         const ThemeState& theme, FontChoice& fonts)
    : style_(style)
    , caption_(std::move(caption))
    , box_(box)
    , theme_(theme)
    , fonts_(fonts)
    , layout_(LayOutButton(style, {box.Width, box.Height}))
    , choice_(ChooseLabelFont(style)) {}

void ButtonLabel::Paint(DrawingSurface& surface) const {
    if (!style_.LabelOn)
        return;
    if (choice_.IsSharp())
        PaintSharp(surface);
    else
        surface.DrawLabel(caption_, SmoothRoom(), SmoothStyle());
}

bool ButtonLabel::IsCut(double ratio) const {
    if (!style_.LabelOn)
        return false;
    if (!choice_.IsSharp()) {
        LabelStyle style = SmoothStyle();
        style.Font = AtRatio(style.Font, ratio);
        return SmoothLabel(caption_, DeviceRect(ToPixels(SmoothRoom()), ratio), style).IsCut();
    }
    const TextFont font = SharpFont();
    const QStringList lines = SharpLines(font, ratio);
    return std::any_of(lines.begin(), lines.end(), [&](const QString& line) {
        return WidthAt(TrimBlanks(line), font, ratio) > SharpRoom();
    });
}

TwipsRect ButtonLabel::SmoothRoom() const {
    return {box_.Left + layout_.LabelLeft, box_.Top, layout_.LabelWidth + kSmoothExtra, box_.Height};
}

LabelStyle ButtonLabel::SmoothStyle() const {
    LabelStyle label;
    label.Font.Family = fonts_.Family(theme_.LabelFontName);
    label.Font.EmSize = FontPixelSize(choice_.Points);
    label.Font.Bold = IsBold();
    label.Font.AntiAlias = theme_.LabelAntiAlias;
    label.Color = HexToArgb(theme_.LabelHex);
    label.AtColumn = AlignColumn(style_.LabelAlignment);
    label.AtRow = AlignRow(style_.LabelAlignment);
    label.Border = HasBorder();
    label.BorderColor = HexToArgb(theme_.LabelBorderHex);
    label.OneLine = choice_.MaxLines == 1;
    return label;
}

TextFont ButtonLabel::SharpFont() const {
    TextFont font;
    font.Family = fonts_.Family(QString::fromUtf16(choice_.Family));
    font.EmSize = PrintedPixelSize(choice_.Points);
    font.Bold = IsBold();
    font.AntiAlias = false;
    font.SmoothOnceLarge = true;
    return font;
}

double ButtonLabel::SharpRoom() const {
    return double(box_.Width - layout_.LabelIndent) / kTwipsPerPixel;
}

QStringList ButtonLabel::SharpLines(const TextFont& font, double ratio) const {
    return WrapLabel(caption_, SharpRoom(), choice_.MaxLines,
                     [&](const QString& text) { return WidthAt(text, font, ratio); });
}

void ButtonLabel::PaintSharp(DrawingSurface& surface) const {
    const TextFont font = SharpFont();
    std::optional<Argb> outline;
    if (HasBorder())
        outline = ColorToArgb(theme_.LabelBorderColor.value_or(0), 255);
    const QStringList lines = SharpLines(font, surface.Ratio());
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = TrimBlanks(lines[i]);
        const int width = int(kTwipsPerPixel * WidthAt(line, font, surface.Ratio()));
        const LinePlace place =
            PlaceLine(style_, layout_, {box_.Width, box_.Height}, width, i, int(lines.size()));
        surface.PrintLine(line, box_.Left + place.Left, box_.Top + place.Top, box_, font,
                          ColorToArgb(theme_.LabelColor, 255), outline);
    }
}

} // namespace paneda
