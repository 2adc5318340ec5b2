#pragma once

#include "core/panel/window_places.h"
#include "core/settings/app_state.h"

#include <QPoint>

class QWidget;

namespace paneda {

class Satellites;
class WorkAreas;

// Where the panel's window stands: dragged by its frame, snapped to the work area's edges, followed by its
// satellites.
class PanelMotion {
public:
    PanelMotion(QWidget& window, AppState& state, WorkAreas& areas, Satellites& satellites);

    // The window's rectangle, in twips.
    TwipsRect Rect() const;

    // Moves the window without touching the saved place.
    void MoveTo(WindowPlace place);

    // The frame is pressed, moved and released with the mouse at a point of the screen, in pixels.
    void StartDrag(const QPoint& mouse);
    void DoFRDrag(const QPoint& mouse);
    void EndFRDrag();

private:
    void Save(WindowPlace place);

    QWidget& window_;
    AppState& state_;
    WorkAreas& areas_;
    Satellites& satellites_;
    bool dragging_ = false;
    // From the window's corner to the mouse, as it was at the press.
    QPoint grip_;
};

} // namespace paneda
