#pragma once

#include "core/panel/window_places.h"

#include <QSize>

class QPoint;
class QWidget;

namespace paneda {

// Moves a window to the place that PlaceWindow (core/panel/window_places.h) finds for it. `mode` is explained
// there; `extra` is the gap to the panel in twips.
void PlaceBeside(QWidget& window, int mode, int extra, const PlaceScene& scene);

// The same for a dialog of the panel: centred, with a gap that all of them have.
void PlaceDialog(QWidget& dialog, const PlaceScene& scene);

// The largest size in pixels that a dialog can have on the panel's screen, without its frame.
QSize RoomForDialog(const PlaceScene& scene);

// Moves a window that has not been shown yet so that it begins at this point (pixels of the desktop), or as
// near to it as the screen's work area lets it.
void PlaceAtPoint(QWidget& window, const QPoint& point);

// The same, with its top at that of another window, `gap` pixels right of it; left of it where there is no
// room.
void PlaceNextTo(QWidget& window, const QWidget& other, int gap);

} // namespace paneda
