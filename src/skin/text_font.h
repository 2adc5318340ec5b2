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
    bool AntiAlias = true;
};

// The same for Qt. The result keeps the resolution that makes its size come out in pixels; do not give it to
// a painter, which would replace that by its device's, but to a QTextLayout.
QFont MakeFont(const TextFont& font);

// Width of one line of text, in pixels.
double MeasureText(const QString& text, const TextFont& font);

// Height from one line to the next, in whole pixels.
int LineHeightOf(const TextFont& font);

} // namespace paneda
