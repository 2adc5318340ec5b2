#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <optional>
#include <vector>

namespace paneda {

// Dragging a window over screens of different ratio. Each screen has its own scale: the corner of its area is
// counted in device pixels of the whole desktop, what lies on it in its own layout pixels. So two screens
// side by side leave a gap between their areas, and a difference of two places says nothing across it.
struct DraggedScreen {
    QRect Area;       // as Qt tells it
    double Ratio = 1; // device pixels for each layout pixel
};

// A window's corner as Qt takes it while the mouse holds the window by a point. `mouse` is Qt's place of the
// mouse on the desktop, `grip` the held point from the window's corner, `size` the window's size in layout
// pixels, `current` the index of its screen. The window belongs to the screen that its middle is on; it stays
// with the current one as long as that is true of it. Where it is true of none, since the window would have
// another size on each, its middle waits at the edge of the screen with the mouse. Nothing without a screen
// under the mouse.
std::optional<QPoint> DraggedCorner(const std::vector<DraggedScreen>& screens, std::size_t current,
                                    const QPointF& mouse, const QPointF& grip, const QSize& size);

} // namespace paneda
