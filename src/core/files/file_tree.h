#pragma once

#include "core/disk/disk_entries.h"

namespace paneda {

// Copies a file, replacing `to` whole. Fails when `from` is no regular file.
FileResult CopyWholeFile(const DiskPath& from, const DiskPath& to);

// Copies a folder with all that is in it to a name that must be free; links are copied as links. Every file
// is flushed. Stops at the first failure and leaves what has been copied.
FileResult CopyTree(const DiskPath& from, const DiskPath& to);

} // namespace paneda
