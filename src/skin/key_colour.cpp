#include "skin/key_colour.h"

#include <algorithm>

namespace paneda {

KeyColour PickKeyColour(const std::vector<ColorRef>& taken) {
    for (int i = 1;; ++i) {
        const QString hex = QStringLiteral("FF%1FF").arg(i, 2, 10, QLatin1Char('0'));
        const ColorRef color = HexToColor(hex);
        if (std::find(taken.begin(), taken.end(), color) == taken.end())
            return {color, MakeArgb(255, 255, i, 255)};
    }
}

ColorRef AwayFromKeyColours(ColorRef color) {
    constexpr ColorRef kRedAndBlue = 0xFF00FF;
    constexpr ColorRef kWhite = 0xFFFFFF;
    const bool isLikeKey = (color & kRedAndBlue) == kRedAndBlue && color != kWhite;
    return isLikeKey ? color - 1 : color;
}

Argb KeyAtDepth(Argb key, int colourDepth) {
    return colourDepth == 16 ? key - 0x100 : key;
}

void CutOutKeyColour(QImage& image, Argb key) {
    image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<Argb*>(image.scanLine(y));
        std::replace(line, line + image.width(), key, Argb(0));
    }
}

} // namespace paneda
