#include "ui/panel/panel_motion.h"

#include "core/panel/screen_drag.h"
#include "ui/panel/satellites.h"
#include "ui/panel/screen_metrics.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <vector>

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

void PanelMotion::StartDrag(const QPointF& grip) {
    dragging_ = true;
    grip_ = grip;
}

void PanelMotion::DoFRDrag(const QPointF& mouse) {
    if (!dragging_)
        return;
    std::vector<DraggedScreen> screens;
    std::size_t current = 0;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen == window_.screen())
            current = screens.size();
        screens.push_back({screen->geometry(), screen->devicePixelRatio()});
    }
    if (const auto corner = DraggedCorner(screens, current, mouse, grip_, window_.size()))
        Save({PixelsToTwips(corner->x()), PixelsToTwips(corner->y())});
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
