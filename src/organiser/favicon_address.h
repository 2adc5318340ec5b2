#pragma once

#include "core/disk/disk_path.h"

#include <QString>

namespace paneda {

// Where the icon of a web address is fetched from.
enum class FaviconKind {
    Shortcut, // "N": the source is a .url file
    Address,  // "F": the source is an address
};

// Where a site keeps its icon: "favicon.ico" behind the host of the address. An address that does not begin
// with "http" gets "http://" in front. The first two characters of the host are not looked at, so that "ab/c"
// is a host. Empty for an empty address and for one of "http" without "//".
QString SiteIconAddress(const QString& address);

// The address to download: what IconFile of a web shortcut names, as it stands, and the site's icon for any
// other source. Empty if there is none.
QString FaviconAddress(const QString& source, FaviconKind kind);

} // namespace paneda
