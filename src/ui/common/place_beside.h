#pragma once

#include "core/panel/window_places.h"

class QWidget;

namespace paneda {

// Moves a window to where PlaceWindow puts it; `extra` is the gap to the panel in twips.
void PlaceBeside(QWidget& window, int mode, int extra, const PlaceScene& scene);

} // namespace paneda
