#pragma once

#include "core/panel/window_places.h"

class QWidget;

namespace paneda {

// Moves a window to the place that PlaceWindow (core/panel/window_places.h) finds for it. `mode` is explained
// there; `extra` is the gap to the panel in twips.
void PlaceBeside(QWidget& window, int mode, int extra, const PlaceScene& scene);

} // namespace paneda
