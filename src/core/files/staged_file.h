#pragma once

#include "core/files/file_io.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace paneda {

// What ReplaceFile, ReplaceFiles and ChangeFiles are made of.

// New contents on their way to a file.
struct Staged {
    DiskPath Path;       // of the file as the caller named it
    DiskPath Target;     // the file behind it
    DiskPath Unfinished; // holds the new contents; empty when there is nothing to clear away
    DiskPath Old;        // a second name of the old file; empty when it has none
};

// A free name beside a file, which no listing shows. It is not made from the final one: whatever a killed
// process leaves must not look like one more file of the store, and a long name must not grow too long.
DiskPath UnfinishedName(const DiskPath& target);

FileWriter WriteAll(const QByteArray& bytes);

// Writes new contents beside the file, which must be one that can be replaced or must not exist. A new file
// is made like `like`, if that is a file. With `flushes` the contents are on the disk afterwards.
tl::expected<Staged, FileError> Stage(const DiskPath& path, const FileWriter& write, const DiskPath& like,
                                      bool flushes);

// Renames the new contents over the file.
FileResult PutInPlace(Staged& staged);

// Gives the old file a second name. Without one, as on file systems that have none, the rename removes the
// old file.
void NameOld(Staged& staged);

// Calls `work` with 0 to count - 1, from several threads at once.
void InParallel(std::size_t count, const std::function<void(std::size_t)>& work);

// Removes what has not been put in place, and the second names.
void ClearAway(const std::vector<Staged>& staged);

} // namespace paneda
