#pragma once

#include <QImage>
#include <QRegion>

namespace paneda {

// The pixels of a picture whose alpha is at least `minAlpha`, 1 to 255: outside of them a window neither
// shows nor takes the mouse.
QRegion ShapeOf(const QImage& picture, int minAlpha);

} // namespace paneda
