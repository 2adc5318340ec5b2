#pragma once

#include "core/store/style_code.h"
#include "core/text/twips.h"

namespace paneda {

// Where the parts of a button lie, from its top left corner.
struct ButtonLayout {
    int IconPixels = 0; // width and height that the layout assumes
    // Of the icon, in pixels; halves are possible.
    double IconLeft = 0;
    double IconTop = 0;
    // Horizontal room of a smooth label, in twips. Both are 0 when the style names no place for the label.
    int LabelLeft = 0;
    int LabelWidth = 0;
    // What a sharp label leaves free beside it for the icon, in twips.
    int LabelIndent = 0;
};

// `size` is the button's, in twips.
ButtonLayout LayOutButton(const ButtonStyle& style, const TwipsSize& size);

// The fonts that a style may choose for its label.
struct LabelFontChoice {
    const char16_t* Family = u"Tahoma";
    int Points = 9;
    int LineHeight = 16; // pixels
    int MaxLines = 2;

    // Small letters are printed without smoothing, line by line: smoothed they cannot be read.
    bool IsSharp() const { return Points < 8; }
};

LabelFontChoice ChooseLabelFont(const ButtonStyle& style);

// The place of one line of a sharp label, in twips from the button's top left corner. `lineWidth` is the
// line's width in twips; a line wider than its room begins where the room does.
struct LinePlace {
    int Left = 0;
    int Top = 0;
};

LinePlace PlaceLine(const ButtonStyle& style, const ButtonLayout& layout, const TwipsSize& size,
                    int lineWidth, int line, int lineCount);

} // namespace paneda
