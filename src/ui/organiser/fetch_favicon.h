#pragma once

#include "core/disk/disk_path.h"
#include "organiser/favicon_address.h"
#include "platform/downloader.h"

#include <QString>

class QWidget;

namespace paneda {

// Downloads a file and keeps it at `target` if it is a picture; otherwise an older file stays
// as it was. Returns when it is done; meanwhile events are handled, and keys and the mouse reach nothing but
// a window that says what is going on, where Escape ends the download. False if nothing was kept.
bool DownloadFile(const QString& address, const DiskPath& target, Downloader& downloader, QWidget* parent);

// The same for the icon of a web shortcut or an address. A site without an icon leaves no file, and nothing
// is said about it.
bool FetchFavicon(const QString& source, const DiskPath& target, FaviconKind kind, Downloader& downloader,
                  QWidget* parent);

} // namespace paneda
