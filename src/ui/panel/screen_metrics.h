#pragma once

#include "core/panel/panel_geometry.h"
#include "core/panel/window_places.h"

#include <vector>

namespace paneda {

class WorkAreas;

// The primary screen. All zero without a screen.
ScreenMetrics CurrentScreenMetrics();

// One of the screens, in twips.
struct ScreenPlace {
    WindowPlace Origin;    // its corner on the desktop that all screens share
    ScreenMetrics Metrics; // counted from its own corner
};

// The screen that a point in twips lies on, or the one nearest to it. Zero without screens.
ScreenPlace ScreenAt(WorkAreas& areas, WindowPlace point);

// The work areas of all screens, in twips.
std::vector<WorkArea> CurrentWorkAreas(WorkAreas& areas);

// The work area of the screen that a point in twips lies on, or of the nearest one.
WorkArea WorkAreaAt(WorkAreas& areas, WindowPlace point);

} // namespace paneda
