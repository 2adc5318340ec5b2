#pragma once

#include <cmath>

namespace paneda {

// Em size in pixels for a font size in points. The common sizes are looked up: what a font's metrics give
// would differ from system to system, and panels are laid out for these.
inline double FontPixelSize(double points) {
    if (points == 10)
        return 13;
    if (points == 9)
        return 12;
    if (points == 8)
        return 11;
    if (points == 7)
        return 9;
    if (points == 6)
        return 8.5;
    return std::floor(1.35 * points);
}

} // namespace paneda
