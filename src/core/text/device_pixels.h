#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

#include <algorithm>
#include <cmath>

namespace paneda {

// A screen's ratio says how many of its own (device) pixels stand for one pixel of the layout, on each axis:
// 1 at 96 dots per inch, 1.25 at 120. This is the one place where layout pixels become device pixels.

// Pictures are composed for these ratios. Beyond them a picture is scaled by what shows it.
inline constexpr double kLeastRatio = 1;
inline constexpr double kLargestRatio = 3;

// The ratio that a screen's pictures are composed at.
inline double PictureRatio(double screen) {
    return std::isfinite(screen) ? std::clamp(screen, kLeastRatio, kLargestRatio) : kLeastRatio;
}

// Where the edge between two layout pixels lies. Rectangles that share an edge there share it here too.
// Halves go up, as they do for the sizes of windows in Qt.
inline int DeviceEdge(int pixel, double ratio) {
    return int(std::floor(pixel * ratio + 0.5));
}

inline QSize DeviceSize(const QSize& pixels, double ratio) {
    return {DeviceEdge(pixels.width(), ratio), DeviceEdge(pixels.height(), ratio)};
}

inline QRect DeviceRect(const QRect& pixels, double ratio) {
    const int left = DeviceEdge(pixels.x(), ratio);
    const int top = DeviceEdge(pixels.y(), ratio);
    return {left, top, DeviceEdge(pixels.x() + pixels.width(), ratio) - left,
            DeviceEdge(pixels.y() + pixels.height(), ratio) - top};
}

// A measure that is the same wherever it lies, such as the thickness of a line; at least one.
inline int DeviceLength(int pixels, double ratio) {
    return std::max(DeviceEdge(pixels, ratio), 1);
}

// The layout pixel that a device pixel shows a part of.
inline int LayoutPixel(int device, double ratio) {
    return int(std::ceil((device + 0.5) / ratio)) - 1;
}

// The same for a place in a window, which Qt gives in fractions of layout pixels.
inline QPoint LayoutPoint(const QPointF& place, double ratio) {
    constexpr double kRounding = 1e-3; // of dividing by the ratio and multiplying by it
    const auto pixel = [ratio](double at) {
        return LayoutPixel(int(std::floor(at * ratio + kRounding)), ratio);
    };
    return {pixel(place.x()), pixel(place.y())};
}

// The size of an icon: of the layout, and of the screen that it is for.
struct IconSize {
    IconSize(int pixels, double ratio = kLeastRatio) : Pixels(pixels), Ratio(ratio) {}

    int Pixels; // of the layout
    double Ratio;

    // Width and height of its picture, in device pixels.
    int OnScreen() const { return DeviceLength(Pixels, Ratio); }
};

} // namespace paneda
