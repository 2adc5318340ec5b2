#pragma once

#include <QIcon>
#include <QString>

namespace paneda {

// The picture that a desktop entry or a shortcut names as its icon, at a size near `pixels`. Because
// strangers write such files, it has to be a regular file of at most 4 MiB with a PNG, ICO, XPM, BMP or GIF
// of at most 1024 pixels a side. SVG and JPEG are read only below the home folder and the folders of
// installed programs, and never below the program's own folder `appFolder` (host path), which travels: a
// small one can take minutes to decode. Null for anything else.
QIcon ForeignIcon(const QString& path, int pixels, const QString& appFolder);

} // namespace paneda
