#pragma once

#include <QFont>
#include <QString>

namespace paneda {

// A font as the drawing routines take it.
struct TextFont {
    QString Family;     // installed; see FontChoice
    double EmSize = 11; // pixels, fractions allowed
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;
    bool AntiAlias = true;
    bool SmoothOnceLarge = false; // smoothed on a screen where it has kSmoothFrom pixels or more
};

// The em size of the smallest labels that can be read when they are smoothed, those of 8 points.
inline constexpr double kSmoothFrom = 11;

// The font for a screen of this many pixels for each pixel of the layout.
TextFont AtRatio(TextFont font, double ratio);

// The same for Qt. The result keeps the resolution that makes its size come out in pixels; do not give it to
// a painter, which would replace that by its device's, but to a QTextLayout.
QFont MakeFont(const TextFont& font);

// Width of one line of text, in pixels.
double MeasureText(const QString& text, const TextFont& font);

// Height from one line to the next, in whole pixels.
int LineHeightOf(const TextFont& font);

} // namespace paneda
