#pragma once

#include <QColor>
#include <QImage>
#include <QString>

#include <tl/expected.hpp>

namespace paneda {

// A picture file scaled for a control: a picture of the given size in pixels on an opaque ground. With
// `keepRatio` the file's picture is scaled to fit and lies in the top left corner, else it is stretched. A
// width or height of -1 gives both the values of the file's picture; other values are limited to 1 to
// kMaxPictureSide. Fails with a text for the user.
tl::expected<QImage, QString> LoadScaledPicture(const QString& path, int& width, int& height,
                                                const QColor& ground, bool keepRatio);

} // namespace paneda
