#pragma once

#include "core/disk/disk_entries.h"

namespace paneda {

// Copies a file, replacing `to` whole. Fails when `from` is no regular file. A new file can be used by those
// who can use `like`, if that is a file.
FileResult CopyWholeFile(const DiskPath& from, const DiskPath& to, const DiskPath& like = {});

// Copies a folder with all that is in it, and with their groups and permissions, to a name that must be free;
// links are copied as links. Every file and folder is flushed. Stops at the first failure and leaves what has
// been copied.
FileResult CopyTree(const DiskPath& from, const DiskPath& to);

} // namespace paneda
