#include "core/text/text_rules.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace paneda {

namespace {

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

qsizetype SkipDigits(QStringView text, qsizetype at) {
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

qsizetype SkipSign(QStringView text, qsizetype at) {
    return at < text.size() && (text[at] == u'-' || text[at] == u'+') ? at + 1 : at;
}

// Code units sort as UTF-8 bytes do once surrogates are moved above the rest of the basic plane.
char16_t SortUnit(char16_t unit) {
    if (unit < 0xD800)
        return unit;
    return unit >= 0xE000 ? char16_t(unit - 0x800) : char16_t(unit + 0x2000);
}

} // namespace

double LeadingNumber(QStringView text) {
    qsizetype begin = 0;
    while (begin < text.size() && (text[begin] == u' ' || text[begin] == u'\t'))
        ++begin;
    const qsizetype digits = SkipSign(text, begin);
    qsizetype end = SkipDigits(text, digits);
    qsizetype count = end - digits;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype fraction = SkipDigits(text, end + 1);
        count += fraction - end - 1;
        end = fraction;
    }
    if (count == 0)
        return 0;
    if (end < text.size() && text[end].toLower() == u'e') {
        const qsizetype exponent = SkipSign(text, end + 1);
        const qsizetype exponentEnd = SkipDigits(text, exponent);
        if (exponentEnd > exponent)
            end = exponentEnd;
    }
    const double value = text.sliced(begin, end - begin).toDouble();
    return std::isfinite(value) ? value : 0;
}

int LeadingInt(QStringView text) {
    return int(std::clamp(std::trunc(LeadingNumber(text)), double(INT_MIN), double(INT_MAX)));
}

QString IfEmpty(const QString& value, const QString& fallback) {
    return value.isEmpty() ? fallback : value;
}

QString TrimBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

int RoundHalfEven(double value) {
    const double low = std::floor(value);
    const double rest = value - low;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(low, 2) != 0);
    return int(std::clamp(up ? low + 1 : low, double(INT_MIN), double(INT_MAX)));
}

int CountOccurrences(QStringView text, QStringView what) {
    int count = 0;
    if (what.isEmpty())
        return 0;
    for (qsizetype at = text.indexOf(what); at >= 0; at = text.indexOf(what, at + what.size()))
        ++count;
    return count;
}

int FindFromEnd(QStringView text, QStringView what, int n) {
    if (what.isEmpty())
        return 0;
    qsizetype found = text.size();
    for (int i = 0; i < n; ++i) {
        // Searched from an offset: without one Qt 6.4 looks a character past the end of a view.
        const qsizetype from = found - what.size();
        found = from < 0 ? -1 : text.lastIndexOf(what, from);
        if (found < 0)
            return 0;
    }
    return n > 0 ? int(found) + 1 : 0;
}

int CompareText(QStringView a, QStringView b) {
    const qsizetype common = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i) {
        const char16_t unitA = a[i].unicode();
        const char16_t unitB = b[i].unicode();
        if (unitA != unitB)
            return SortUnit(unitA) < SortUnit(unitB) ? -1 : 1;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool SameName(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace paneda
