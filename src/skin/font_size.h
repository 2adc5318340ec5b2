#pragma once

#include <cmath>

namespace paneda {

// Em size in pixels of smoothed text for a font size in points. The common sizes are looked up: what a font's
// metrics give would differ from system to system, and panels are laid out for these.
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

// Em size in pixels of text that is printed without smoothing (sharp labels, data of drives): 8 for 6 points,
// 9.33 for 7. A point is 1/72 inch, and panels are laid out for 96 pixels an inch on every screen.
inline double PrintedPixelSize(double points) {
    return points * 96 / 72;
}

} // namespace paneda
