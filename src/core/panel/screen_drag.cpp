#include "core/panel/screen_drag.h"

#include <QRectF>

#include <algorithm>

namespace paneda {

namespace {

QPointF ToDesktop(const DraggedScreen& screen, const QPointF& place) {
    const QPointF origin = screen.Area.topLeft();
    return origin + (place - origin) * screen.Ratio;
}

QPointF FromDesktop(const DraggedScreen& screen, const QPointF& place) {
    const QPointF origin = screen.Area.topLeft();
    return origin + (place - origin) / screen.Ratio;
}

QRect WindowOn(const DraggedScreen& screen, const QPointF& mouseOnDesktop, const QPointF& grip,
               const QSize& size) {
    return {FromDesktop(screen, mouseOnDesktop - grip * screen.Ratio).toPoint(), size};
}

} // namespace

std::optional<QPoint> DraggedCorner(const std::vector<DraggedScreen>& screens, std::size_t current,
                                    const QPointF& mouse, const QPointF& grip, const QSize& size) {
    const auto under = std::find_if(screens.begin(), screens.end(), [&mouse](const DraggedScreen& screen) {
        return QRectF(screen.Area).contains(mouse);
    });
    if (under == screens.end())
        return std::nullopt;
    const QPointF onDesktop = ToDesktop(*under, mouse);
    const auto window = [&](const DraggedScreen& screen) { return WindowOn(screen, onDesktop, grip, size); };
    const auto owns = [&](const DraggedScreen& screen) {
        return screen.Area.contains(window(screen).center());
    };
    if (current < screens.size() && owns(screens[current]))
        return window(screens[current]).topLeft();
    const auto owner = std::find_if(screens.begin(), screens.end(), owns);
    if (owner != screens.end())
        return window(*owner).topLeft();
    // In the scale of each screen its middle lies on the other one.
    QRect waiting = window(*under);
    waiting.moveCenter({std::clamp(waiting.center().x(), under->Area.left(), under->Area.right()),
                        std::clamp(waiting.center().y(), under->Area.top(), under->Area.bottom())});
    return waiting.topLeft();
}

} // namespace paneda
