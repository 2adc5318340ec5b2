#pragma once

#include "skin/font_choice.h"
#include "skin/smooth_label.h"

#include <QImage>
#include <QSize>
#include <QString>
#include <QStringView>

#include <optional>

namespace paneda {

// A font as the font dialog gets it and gives it back.
struct FontDialogValues {
    QString Name;
    double Size = 8; // points, of range::kFontSize
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;
    ColorRef TextColor = 0;
    std::optional<ColorRef> BorderColor = {}; // nothing: the text has no border
    bool AntiAlias = true;
    int Alignment = 1; // 1 to 9, rows of three from top left

    friend bool operator==(const FontDialogValues&, const FontDialogValues&) = default;
};

// The size that a user has typed, with a point or a comma; nothing if it is no size.
std::optional<double> TypedFontSize(QStringView typed);

// A ground on which a text of this colour is seen: white, or nearly black. With a border grey, on which the
// border is seen too.
Argb SampleGround(ColorRef text, const std::optional<ColorRef>& border);

// "Sample Text" with these values, for a screen of this ratio, which the picture then has. `size` is layout
// pixels.
QImage DrawFontSample(const FontDialogValues& values, FontChoice& fonts, const QSize& size, double ratio);

} // namespace paneda
