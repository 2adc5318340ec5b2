#pragma once

#include "core/files/file_io.h"

#include <optional>
#include <vector>

namespace paneda {

// What becomes of one file.
struct FileChange {
    DiskPath Path;
    std::optional<QByteArray> Bytes; // the new contents; nothing: the file is removed, if it is there
};

// Changes several files: all of them, or after a failure none. All new contents are written and flushed, and
// every old file is kept under a second name, before the first file changes; then the changes are made in
// the order of the list, and taken back if one fails. A program that is killed has made the first few of
// them, each whole. Fails for a file that may not be written, and for what is no file.
FileResult ChangeFiles(const std::vector<FileChange>& changes);

} // namespace paneda
