#pragma once

#include <QIcon>
#include <QString>

namespace paneda {

// The picture that a desktop entry or a shortcut names as its icon, at a size near `pixels`. Such files are
// written by strangers: of at most 4 MiB and 1024 pixels a side, PNG, ICO, XPM, BMP or GIF. No limit holds
// the time that an SVG or JPEG can take; these are read only where the user or the system has put them, in
// the home folder or among the installed programs, and never in the program's own folder `appFolder`, which
// travels. Null for any other file and for what is no regular file.
QIcon ForeignIcon(const QString& path, int pixels, const QString& appFolder);

} // namespace paneda
