#pragma once

#include "core/files/file_io.h"

namespace paneda {

// Makes sure that files which have been written and closed are on the disk, their names included; a power
// failure after it loses none of them. Fails when the disk did not take them. Blocks for as long as the disk
// takes, which may be seconds when other programs are writing to it.
FileResult FlushFilesToDisk(const QStringList& files);

} // namespace paneda
