#pragma once

#include "core/panel_geometry.h"
#include "core/triggers.h"

#include <vector>

namespace paneda {

// The screen that the panel is laid out for: the primary one. All zero without a screen.
ScreenMetrics CurrentScreenMetrics();

// Bits per pixel of that screen; 0 without one.
int CurrentColourDepth();

// The work areas of all screens, in twips.
std::vector<WorkArea> CurrentWorkAreas();

// The work area of the screen that a point in twips lies on, or of the nearest one.
WorkArea WorkAreaAt(WindowPlace point);

} // namespace paneda
