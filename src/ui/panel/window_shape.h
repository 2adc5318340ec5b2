#pragma once

#include <QImage>
#include <QRegion>

namespace paneda {

// The pixels of a picture whose alpha is at least `minAlpha` (1 to 255). As the shape of a window: outside of
// them nothing is shown, and mouse clicks reach the window below.
QRegion ShapeOf(const QImage& picture, int minAlpha);

} // namespace paneda
