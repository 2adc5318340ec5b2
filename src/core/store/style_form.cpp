#include "core/store/style_form.h"

namespace paneda {

namespace {

constexpr char16_t kTen = u'A';
// From a width to the same width and a half: "1" to "B".
constexpr int kHalfStep = u'B' - u'1';

QChar CharacterAt(QStringView code, int position) {
    return position <= code.size() ? code[position - 1] : QChar();
}

int DigitOr(QChar c, int last, int fallback) {
    const int digit = c.unicode() - u'0';
    return digit >= 1 && digit <= last ? digit : fallback;
}

void ReadWidth(StyleForm& form, QChar code) {
    if (code >= u'B' && code <= u'Z') {
        form.WidthCode = QChar(code.unicode() - kHalfStep);
        form.WidthIsHalf = true;
    } else if ((code >= u'0' && code <= u'9') || code == kTen) {
        form.WidthCode = code;
    }
}

QChar Mark(bool on) {
    return on ? u'1' : u'0';
}

QChar Digit(int digit) {
    return QChar(u'0' + digit);
}

} // namespace

StyleForm DecodeStyleForm(QStringView code) {
    constexpr int kUsualFont = 3;
    StyleForm form;
    ReadWidth(form, CharacterAt(code, 1));
    form.HeightCode = Mark(CharacterAt(code, 2) != u'0');
    form.Icon = CharacterAt(code, 3) != u'0';
    form.IconIsBig = CharacterAt(code, 3) != u'2';
    form.IconAlignment = DigitOr(CharacterAt(code, 4), 9, 1);
    form.LabelFont = DigitOr(CharacterAt(code, 5), 4, kUsualFont);
    form.Border = CharacterAt(code, 6) == u'1';
    form.Bold = CharacterAt(code, 7) == u'1';
    form.LabelPosition = DigitOr(CharacterAt(code, 8), 3, 1);
    form.LabelAlignment = DigitOr(CharacterAt(code, 9), 9, 1);
    form.Label = CharacterAt(code, 10) == u'1';
    form.Background = CharacterAt(code, 11) == u'1';
    return form;
}

QString EncodeStyle(const StyleForm& form) {
    const QChar width = form.WidthIsHalf ? QChar(form.WidthCode.unicode() + kHalfStep) : form.WidthCode;
    const QChar icon = !form.Icon ? u'0' : form.IconIsBig ? u'1' : u'2';
    return QString(width) + form.HeightCode + icon + Digit(form.IconAlignment) + Digit(form.LabelFont) +
           Mark(form.Border) + Mark(form.Bold) + Digit(form.LabelPosition) + Digit(form.LabelAlignment) +
           Mark(form.Label) + Mark(form.Background);
}

StyleForm WithWidth(StyleForm form, int units) {
    constexpr int kMost = 10;
    form.WidthCode = units == kMost ? QChar(kTen) : Digit(units);
    if (units == 0 || units == kMost)
        form.WidthIsHalf = false;
    if (units == 0)
        form.IconIsBig = false;
    return form;
}

StyleForm WithWidthHalf(StyleForm form) {
    form.WidthIsHalf = !form.WidthIsHalf && form.WidthCode != kTen && form.WidthCode != u'0';
    return form;
}

StyleForm WithHeight(StyleForm form, int units) {
    form.HeightCode = Digit(units);
    if (units == 0)
        form.IconIsBig = false;
    return form;
}

int WidthCell(const StyleForm& form) {
    constexpr int kMost = 10;
    if (form.WidthCode == kTen)
        return kMost;
    return form.WidthCode >= u'0' && form.WidthCode <= u'9' ? form.WidthCode.unicode() - u'0' : -1;
}

} // namespace paneda
