#include "core/store/style_code.h"

#include "core/text/text_rules.h"

#include <algorithm>

namespace paneda {

namespace {

QChar CharacterAt(QStringView code, int position) {
    return position <= code.size() ? code[position - 1] : QChar();
}

int DigitOr(QChar c, int first, int last, int fallback) {
    const int digit = c.unicode() - u'0';
    return digit >= first && digit <= last ? digit : fallback;
}

// Units without the cap; 0.5 for "0".
double CodedUnits(QChar c) {
    if (c.isNull())
        return 1;
    if (c == u'0')
        return 0.5;
    if (c >= u'1' && c <= u'9')
        return c.unicode() - u'0';
    if (c == u'A')
        return 10;
    if (c >= u'B' && c <= u'Z')
        return c.unicode() - u'A' + 0.5;
    return 1;
}

} // namespace

ButtonStyle DecodeStyle(QStringView code) {
    ButtonStyle style;
    style.Width = CharacterAt(code, 1);
    style.Height = CharacterAt(code, 2);
    const QChar icon = CharacterAt(code, 3);
    style.DrawIcon = icon == u'1' || icon == u'2';
    if (icon == u'0')
        style.Icon = ButtonStyle::IconSize::None;
    else if (icon == u'2')
        style.Icon = ButtonStyle::IconSize::Small;
    style.IconAlignment = DigitOr(CharacterAt(code, 4), 1, 9, 1);
    style.LabelFont = DigitOr(CharacterAt(code, 5), 1, 4, 4);
    style.LabelBorder = CharacterAt(code, 6) == u'1';
    style.LabelBold = CharacterAt(code, 7) == u'1';
    switch (DigitOr(CharacterAt(code, 8), 1, 3, 0)) {
    case 1:
        style.LabelPosition = ButtonStyle::LabelPlace::RightOfIcon;
        break;
    case 2:
        style.LabelPosition = ButtonStyle::LabelPlace::LeftOfIcon;
        break;
    case 3:
        style.LabelPosition = ButtonStyle::LabelPlace::Overlap;
        break;
    default:
        break;
    }
    style.LabelAlignment = DigitOr(CharacterAt(code, 9), 1, 9, 1);
    style.LabelOn = CharacterAt(code, 10) == u'1';
    style.Background = CharacterAt(code, 11) == u'1';
    return style;
}

double ButtonWidthUnits(QStringView code, double cap) {
    const double units = std::min(CodedUnits(CharacterAt(code, 1)), cap);
    return units <= 0 ? 0.5 : units;
}

int ButtonWidthTwips(QStringView code, double cap) {
    const double units = std::min(CodedUnits(CharacterAt(code, 1)), cap);
    if (units <= 0.5)
        return kHalfUnit;
    return RoundHalfEven((units - 1) * kUnitStep + kUnit);
}

int ButtonHeight(QStringView code) {
    return CharacterAt(code, 2) == u'0' ? kHalfUnit : kUnit;
}

} // namespace paneda
