#pragma once

#include "core/files/file_io.h"

namespace paneda {

// Returns when files that have been written and closed are on the disk with their names, so that a power
// failure loses none of them. Fails if the disk reports an error. Blocks as long as the disk takes, which may
// be seconds while other programs write to it.
FileResult FlushFilesToDisk(const QStringList& files);

} // namespace paneda
