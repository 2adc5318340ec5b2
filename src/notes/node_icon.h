#pragma once

#include "core/files/file_io.h"

#include <QString>

namespace paneda {

// A node's own icon: Image.png, which wins, or Image.ico in its folder, in any case of letters.

// Host path of a node's own icon; empty when it has none.
QString FindNodeIcon(const DiskPath& nodeFolder);

// What a node's row shows.
enum class NodeIconKind {
    OwnPicture,
    Target,   // the icon that the desktop has for the target
    Favorite, // the picture of all favorites, or of all notes
    Note,
};

// `type`: "" for a note, "File" or "URL".
NodeIconKind DecideNodeIcon(const QString& type, bool hasOwnPicture);

// Copies a picture to "Image." and the last three characters of its name.
FileResult CopyNodeIcon(const QString& source, const DiskPath& nodeFolder);

// Gives a node another icon, or none for an empty source. The new picture is in place before the old one is
// removed.
FileResult ChangeNodeIcon(const QString& source, const DiskPath& nodeFolder);

// Where the icon of a web address belongs.
DiskPath FaviconFile(const DiskPath& nodeFolder);

} // namespace paneda
