#pragma once

#include "core/panel/window_places.h"
#include "core/settings/app_state.h"

#include <QPointF>

class QWidget;

namespace paneda {

class Satellites;
class WorkAreas;

// Moves the panel's window: the user drags it by its frame, it snaps to the edges of the work area, and its
// satellites follow it.
class PanelMotion {
public:
    PanelMotion(QWidget& window, AppState& state, WorkAreas& areas, Satellites& satellites);

    // The window's rectangle, in twips.
    TwipsRect Rect() const;

    // Moves the window; the saved place stays as it is.
    void MoveTo(WindowPlace place);

    // Mouse press on the frame, at a place in the window; move to a place of the desktop; release.
    void StartDrag(const QPointF& grip);
    void DoFRDrag(const QPointF& mouse);
    void EndFRDrag();

private:
    void Save(WindowPlace place);

    QWidget& window_;
    AppState& state_;
    WorkAreas& areas_;
    Satellites& satellites_;
    bool dragging_ = false;
    QPointF grip_; // from the window's corner, in layout pixels
};

} // namespace paneda
