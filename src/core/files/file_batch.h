#pragma once

#include "core/files/file_io.h"

#include <functional>
#include <vector>

namespace paneda {

// The new contents of the file with this place in the list. Called from several threads at once.
using BytesOfFile = std::function<tl::expected<QByteArray, FileError>(std::size_t index)>;

// Replaces many files, each as ReplaceFile does: every one is old or new at any moment. All new contents are
// written, then flushed together, then renamed into place one after the other in the order of the list; so a
// program that is killed has replaced the first few of them. After a failure before the first rename nothing
// has changed. The new names are on the disk when this returns.
FileResult ReplaceFiles(const std::vector<DiskPath>& paths, const BytesOfFile& bytesOf);

} // namespace paneda
