#pragma once

#include "core/text/device_pixels.h"

#include <QImage>

namespace paneda {

// A picture of exactly this size, with alpha. A larger picture is scaled down. A smaller one is enlarged by
// the screen's ratio, at most to the size, and centred: it looks as large as on a screen of ratio 1. Null for
// a null picture.
QImage SizedIcon(QImage picture, const IconSize& size);

} // namespace paneda
