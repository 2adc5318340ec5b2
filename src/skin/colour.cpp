#include "skin/colour.h"

#include <algorithm>

namespace paneda {

namespace {

ColorRef ChannelOf(QStringView digits) {
    const bool hexadecimal = std::all_of(digits.begin(), digits.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    });
    return hexadecimal ? digits.toUInt(nullptr, 16) : 0;
}

Argb Byte(int value) {
    return Argb(std::clamp(value, 0, 255));
}

} // namespace

ColorRef HexToColor(QStringView text) {
    const qsizetype size = text.size();
    const QStringView red = text.first(std::min<qsizetype>(2, size));
    const QStringView green =
        text.sliced(std::min<qsizetype>(2, size)).first(std::clamp<qsizetype>(size - 2, 0, 2));
    const QStringView blue = text.last(std::min<qsizetype>(2, size));
    return ChannelOf(red) | ChannelOf(green) << 8 | ChannelOf(blue) << 16;
}

QString ColorToHex(ColorRef color) {
    const ColorRef swapped = (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
    return QStringLiteral("%1").arg(swapped, 6, 16, QLatin1Char('0')).toUpper();
}

Argb MakeArgb(int alpha, int red, int green, int blue) {
    return Byte(alpha) << 24 | Byte(red) << 16 | Byte(green) << 8 | Byte(blue);
}

Argb ColorToArgb(ColorRef color, int alpha) {
    return MakeArgb(alpha, int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
}

std::array<int, 3> SplitArgb(Argb argb) {
    return {int(argb >> 16 & 0xFF), int(argb >> 8 & 0xFF), int(argb & 0xFF)};
}

Argb HexToArgb(QStringView text) {
    return ColorToArgb(HexToColor(text), 255);
}

} // namespace paneda
