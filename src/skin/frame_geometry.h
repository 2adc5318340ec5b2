#pragma once

#include "core/text/twips.h"
#include "skin/piece_sizes.h"

namespace paneda {

// The sixteen pieces of the frame, in twips from the window's top left corner. Each edge is a filler A
// between its corners, a piece in its centre, and a filler B from there to its right or lower corner, which a
// skin may lack and then is empty.
struct FrameGeometry {
    TwipsRect TopLeft;
    TwipsRect TopA;
    TwipsRect Top;
    TwipsRect TopB;
    TwipsRect TopRight;
    TwipsRect LeftA;
    TwipsRect Left;
    TwipsRect LeftB;
    TwipsRect RightA;
    TwipsRect Right;
    TwipsRect RightB;
    TwipsRect BottomLeft;
    TwipsRect BottomA;
    TwipsRect Bottom;
    TwipsRect BottomB;
    TwipsRect BottomRight;

    // What lies inside the frame.
    TwipsRect Inner;
};

// In a window that is narrower than the bottom piece, that piece begins at the left margin and ends at the
// right one, and the areas on it go along.
FrameGeometry DisplayBorder(const PieceSizes& sizes, const TwipsSize& window);

// The areas on the bottom piece that hide the panel and open its menu, in the window. Never of negative size.
TwipsRect HideArea(const FrameGeometry& frame, const ThemeState& theme);
TwipsRect MenuArea(const FrameGeometry& frame, const ThemeState& theme);

// The logo's place in the window for its size in twips.
TwipsRect LogoArea(const FrameGeometry& frame, const ThemeState& theme, const TwipsSize& logo);

} // namespace paneda
