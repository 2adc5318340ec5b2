#pragma once

#include "core/text/device_pixels.h"

#include <QImage>
#include <QString>

namespace paneda {

// Where the icons of files, folders, programs and addresses come from.
class IconSource {
public:
    virtual ~IconSource() = default;

    // The icon of what a path of the stored form, a host path or an address names, size.OnScreen() wide and
    // high, with alpha. Null if there is none.
    virtual QImage Icon(const QString& path, const IconSize& size) = 0;
};

} // namespace paneda
