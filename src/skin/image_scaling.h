#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

namespace paneda {

// A part of a picture scaled to a size, both in pixels. Where it grows, target pixel i is taken at
// i * part / target and blended with the source pixel behind it, also with one just outside the part but
// never with what lies outside the picture, so that edges stay as they are. Where it shrinks, pixels are
// averaged. Null if the part or the size is empty. The picture is premultiplied ARGB.
QImage ScalePart(const QImage& picture, const QRect& part, const QSize& target);

// A part of a picture at another density: the middle of each target pixel is taken from the same place of the
// part, so that nothing moves to one side. What lies outside the part does not show.
QImage Resample(const QImage& picture, const QRect& part, const QSize& target);

} // namespace paneda
