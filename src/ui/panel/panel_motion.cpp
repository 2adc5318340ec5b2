#include "ui/panel/panel_motion.h"

#include "ui/panel/satellites.h"
#include "ui/panel/screen_metrics.h"

#include <QWidget>

namespace paneda {

PanelMotion::PanelMotion(QWidget& window, AppState& state, WorkAreas& areas, Satellites& satellites)
    : window_(window), state_(state), areas_(areas), satellites_(satellites) {}

TwipsRect PanelMotion::Rect() const {
    return {PixelsToTwips(window_.x()), PixelsToTwips(window_.y()), PixelsToTwips(window_.width()),
            PixelsToTwips(window_.height())};
}

void PanelMotion::MoveTo(WindowPlace place) {
    window_.move(TwipsToPixels(place.Left), TwipsToPixels(place.Top));
    satellites_.Follow(Rect(), nullptr);
}

void PanelMotion::StartDrag(const QPoint& mouse) {
    dragging_ = true;
    grip_ = mouse - window_.pos();
}

void PanelMotion::DoFRDrag(const QPoint& mouse) {
    if (!dragging_)
        return;
    const QPoint corner = mouse - grip_;
    Save({PixelsToTwips(corner.x()), PixelsToTwips(corner.y())});
}

void PanelMotion::EndFRDrag() {
    if (!dragging_)
        return;
    dragging_ = false;
    const TwipsRect panel = Rect();
    const WindowPlace centre{panel.Left + panel.Width / 2, panel.Top + panel.Height / 2};
    Save(SnapToEdges(panel, WorkAreaAt(areas_, centre)));
}

void PanelMotion::Save(WindowPlace place) {
    state_.PanelLeft = place.Left;
    state_.PanelTop = place.Top;
    MoveTo(place);
}

} // namespace paneda
