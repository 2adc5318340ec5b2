#include "skin/text_font.h"

#include <QFontMetricsF>
#include <QImage>

#include <algorithm>
#include <cmath>

namespace paneda {

namespace {

constexpr int kDotsPerMeterAt72 = 2835;

} // namespace

QFont MakeFont(const TextFont& font) {
    QFont made(font.Family);
    // QFont takes whole pixels alone, but fractions of points; at 72 dots per inch the two are the same.
    made.setPointSizeF(std::max(font.EmSize, 1.0));
    made.setBold(font.Bold);
    made.setItalic(font.Italic);
    made.setUnderline(font.Underline);
    made.setStrikeOut(font.Strikethrough);
    made.setStyleStrategy(font.AntiAlias ? QFont::PreferAntialias : QFont::NoAntialias);
    made.setHintingPreference(QFont::PreferFullHinting);
    made.setKerning(font.AntiAlias);
    QImage device(1, 1, QImage::Format_ARGB32_Premultiplied);
    device.setDotsPerMeterX(kDotsPerMeterAt72);
    device.setDotsPerMeterY(kDotsPerMeterAt72);
    return QFont(made, &device);
}

TextFont AtRatio(TextFont font, double ratio) {
    font.EmSize *= ratio;
    font.AntiAlias = font.AntiAlias || (font.SmoothOnceLarge && font.EmSize >= kSmoothFrom);
    return font;
}

double MeasureText(const QString& text, const TextFont& font) {
    return QFontMetricsF(MakeFont(font)).horizontalAdvance(text);
}

int LineHeightOf(const TextFont& font) {
    return int(std::ceil(QFontMetricsF(MakeFont(font)).height()));
}

} // namespace paneda
