#include "skin/font_values.h"

#include "core/text/ranges.h"
#include "skin/drawing_surface.h"
#include "skin/font_size.h"

#include <array>
#include <cmath>

namespace paneda {

namespace {

constexpr Argb kLightGround = 0xFFFFFFFF;
constexpr Argb kMiddleGround = 0xFF8C8C8C;
constexpr Argb kDarkGround = 0xFF202428;
// Relative luminance at which both grounds have the same contrast to a text.
constexpr double kLightText = 0.22;
constexpr int kSampleMargin = 90; // twips

// As the WCAG defines it: 0 for black, 1 for white.
double Luminance(ColorRef color) {
    constexpr std::array<double, 3> kWeights{0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (std::size_t i = 0; i < kWeights.size(); ++i) {
        const double part = double(color >> (8 * i) & 0xFF) / 255;
        sum += kWeights[i] * (part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
    }
    return sum;
}

LabelStyle SampleStyle(const FontDialogValues& values, FontChoice& fonts) {
    LabelStyle style;
    style.Font = {.Family = fonts.Family(values.Name),
                  .EmSize = FontPixelSize(values.Size),
                  .Bold = values.Bold,
                  .Italic = values.Italic,
                  .Underline = values.Underline,
                  .Strikethrough = values.Strikethrough,
                  .AntiAlias = values.AntiAlias};
    style.Color = ColorToArgb(values.TextColor, 255);
    style.AtColumn = AlignColumn(values.Alignment);
    style.AtRow = AlignRow(values.Alignment);
    style.Border = values.BorderColor.has_value();
    style.BorderColor = ColorToArgb(values.BorderColor.value_or(0), 255);
    style.OneLine = true;
    return style;
}

} // namespace

std::optional<double> TypedFontSize(QStringView typed) {
    bool isNumber = false;
    const double size = typed.trimmed().toString().replace(u',', u'.').toDouble(&isNumber);
    return isNumber && range::kFontSize.Holds(size) ? std::optional(size) : std::nullopt;
}

Argb SampleGround(ColorRef text, const std::optional<ColorRef>& border) {
    if (border)
        return kMiddleGround;
    return Luminance(text) > kLightText ? kDarkGround : kLightGround;
}

QImage DrawFontSample(const FontDialogValues& values, FontChoice& fonts, const QSize& size, double ratio) {
    DrawingSurface surface(size, ratio);
    const TwipsRect whole{0, 0, PixelsToTwips(size.width()), PixelsToTwips(size.height())};
    surface.FillRect(SampleGround(values.TextColor, values.BorderColor), whole);
    surface.DrawLabel(
        QStringLiteral("Sample Text"),
        {kSampleMargin, kSampleMargin, whole.Width - 2 * kSampleMargin, whole.Height - 2 * kSampleMargin},
        SampleStyle(values, fonts));
    QImage image = surface.Image();
    image.setDevicePixelRatio(ratio);
    return image;
}

} // namespace paneda
