#pragma once

#include "core/panel_geometry.h"

namespace paneda {

// The screen that the panel is laid out for: the primary one. All zero without a screen.
ScreenMetrics CurrentScreenMetrics();

// Bits per pixel of that screen; 0 without one.
int CurrentColourDepth();

} // namespace paneda
