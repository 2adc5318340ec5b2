#pragma once

#include "skin/colour.h"

#include <QImage>

#include <vector>

namespace paneda {

// The colour that stands for an empty pixel under text that is printed without alpha, in both its forms.
struct KeyColour {
    ColorRef Color = 0;
    Argb Value = 0;
};

// The first of FF01FF, FF02FF, ... that is none of the given colours. From the tenth on, the two forms
// differ: one reads the number's digits as hexadecimal.
KeyColour PickKeyColour(const std::vector<ColorRef>& taken);

// A colour for a text that can be no key, whatever other colours a skin has: the given one, unless it has the
// form of a key; its red is then one step less.
ColorRef AwayFromKeyColours(ColorRef color);

// The key as a display of so many bits per pixel shows it: one of 16 loses the key's lowest bits of green.
Argb KeyAtDepth(Argb key, int colourDepth);

// Makes the pixels of this opaque colour transparent.
void CutOutKeyColour(QImage& image, Argb key);

} // namespace paneda
