#pragma once

#include "core/text/twips.h"

#include <vector>

namespace paneda {

// Where the panel and the windows beside it stand: at the edges of a screen, snapped to them, back in view
// when a screen is gone, beside the panel. All measures are twips; whoever looks at real windows turns pixels
// into twips before and back after.

// The part of a screen that the desktop leaves to windows.
struct WorkArea {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    friend bool operator==(const WorkArea&, const WorkArea&) = default;
};

// A window's top left corner.
struct WindowPlace {
    int Left = 0;
    int Top = 0;

    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

// The beginning of a stretch of this length, moved so that it lies between `low` and `high`. Of one that is
// longer than that the end is kept inside.
int HeldBetween(int begin, int length, int low, int high);

// The saved place, moved so that the panel does not reach beyond the right and the bottom edge. A panel that
// is larger than the area does, and begins at the area's left or top edge.
WindowPlace HeldToFarEdges(WindowPlace saved, TwipsSize panel, const WorkArea& area);

// The place of a panel that has been dragged: an edge within 300 twips inside the same edge of the work area
// snaps to it; left and top are tried first. An edge outside of the work area does not snap.
WindowPlace SnapToEdges(const TwipsRect& panel, const WorkArea& area);

// What decides where a window beside the panel is placed: the panel, and the screen that the panel is on.
struct PlaceScene {
    TwipsRect Panel;
    TwipsSize Screen;
    int WorkAreaBottom = 0;
    WindowPlace ScreenOrigin{}; // the screen's corner on the desktop that all screens share
};

// The border label that a placed window shows, on its side away from the panel. Only mode 3 decides it.
enum class BorderLabel { AsItIs, Left, Right };

struct PlacedWindow {
    WindowPlace Place;
    BorderLabel Border = BorderLabel::AsItIs;

    friend bool operator==(const PlacedWindow&, const PlacedWindow&) = default;
};

// Places a window beside the panel with a gap of `extra`: at its left when the panel stands in the right half
// of the screen, else at its right. Mode 1 centres it on the screen's height, 2 aligns the tops, 3 centres it
// on the panel; any other mode leaves the top alone.
PlacedWindow PlaceWindow(const TwipsRect& window, int mode, int extra, const PlaceScene& scene);

// The area that holds the point, else the one nearest to it; its right and bottom edges belong to the areas
// behind them. An empty area when there are none.
WorkArea NearestArea(const std::vector<WorkArea>& areas, WindowPlace point);

// For a saved place on a screen that is gone: if no area shows enough of the panel's top edge to drag it
// there, the panel is moved into the nearest area. Without areas the place stays as it is.
WindowPlace BringIntoView(WindowPlace saved, TwipsSize panel, const std::vector<WorkArea>& areas);

} // namespace paneda
