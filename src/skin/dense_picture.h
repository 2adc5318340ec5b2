#pragma once

#include "core/text/device_pixels.h"

#include <QImage>
#include <QSize>

#include <cmath>
#include <utility>

namespace paneda {

// What is composed: a size in layout pixels (empty: any) for a screen of that ratio.
struct Canvas {
    QSize Pixels = {};
    double Ratio = kLeastRatio;
};

// A picture with the number of its pixels that stand for one layout pixel: 2 for a file `name@2x.png`.
struct DensePicture {
    DensePicture() = default;
    DensePicture(QImage image, double density = 1) : Image(std::move(image)), Density(density) {}

    QImage Image; // premultiplied ARGB; null for none
    double Density = 1;

    bool IsNull() const { return Image.isNull(); }
    // Its size in layout pixels.
    QSize Size() const {
        return {int(std::lround(Image.width() / Density)), int(std::lround(Image.height() / Density))};
    }
};

} // namespace paneda
