#pragma once

#include "core/text/device_pixels.h"
#include "platform/opener.h"

#include <QImage>
#include <QString>

namespace paneda {

// The desktop's icons for files.
class FileIcons {
public:
    virtual ~FileIcons() = default;

    // The icon of a target as records hold it (stored form, host path or web address), size.OnScreen() wide
    // and high, with alpha. One that the desktop has only in smaller sizes looks as large as on a
    // screen of ratio 1. A null image when the desktop has none, or when the target is gone.
    virtual QImage IconOf(const QString& target, const LaunchPaths& paths, const IconSize& size) = 0;

    // What the desktop calls files of this kind ("PNG image"), by the name alone. Empty when it has no word.
    virtual QString TypeNameOf(const QString& fileName) = 0;
};

} // namespace paneda
