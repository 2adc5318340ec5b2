#pragma once

#include "core/panel/panel_geometry.h"
#include "core/panel/window_places.h"

#include <vector>

namespace paneda {

class WorkAreas;

// Size and work area of the primary screen, in twips. All zero without a screen.
ScreenMetrics CurrentScreenMetrics();

// One of the screens, in twips.
struct ScreenPlace {
    WindowPlace Origin;    // its top left corner on the desktop of all screens
    ScreenMetrics Metrics; // relative to that corner
    double Ratio = 1;      // device pixels for each layout pixel
};

// The screen at this point (twips), or the nearest one. All zero without a screen.
ScreenPlace ScreenAt(WorkAreas& areas, WindowPlace point);

// The work areas of all screens, in twips.
std::vector<WorkArea> CurrentWorkAreas(WorkAreas& areas);

// The work area of the screen at this point (twips), or of the nearest one.
WorkArea WorkAreaAt(WorkAreas& areas, WindowPlace point);

} // namespace paneda
