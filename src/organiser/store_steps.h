#pragma once

#include "core/files/file_io.h"
#include "organiser/renumbering.h"

#include <functional>

namespace paneda {

// The steps by which the organiser changes the disk. No step overwrites anything, and a program that is
// killed in the middle of one leaves what was there, or what should be there, and nothing else that a list
// shows. The errors name the path and the reason.

// All names in a folder.
tl::expected<QStringList, FileError> NamesIn(const DiskPath& folder);

// Makes the renames in their order. None is made when a name is too long for the disk. Stops at the first
// that fails; those before it stay made.
FileResult RunRenames(const DiskPath& folder, const Renames& renames);

// Removes a file, or a folder with all that is in it, for good. First it gets a hidden name in the same
// folder, so that all of it or nothing shows. A missing one is a failure, since it may be there under another
// name. After a failure it is still there whole, or hidden and partly removed; what is hidden is removed by
// RemoveLeftovers.
FileResult DeleteTree(const DiskPath& path);

// Makes a file with a name that must be free. `write` fills a hidden file beside it.
FileResult AddFile(const DiskPath& path, const std::function<FileResult(const DiskPath& hidden)>& write);

// The same for a file that is put into its place in another way: `place` renames the hidden file. `shown` is
// the path that errors name.
FileResult WriteHidden(const DiskPath& shown, const std::function<FileResult(const DiskPath& hidden)>& write,
                       const std::function<FileResult(const DiskPath& hidden)>& place);

// Deletes a file whose copy has got its name in a folder, when that name is on the disk.
FileResult RemoveMoved(const DiskPath& source, const DiskPath& folder);

// Removes what killed steps, and killed writes of files, have left in a folder, not in those below it. Files
// count as left when they are more than a day old, since another process may be writing one. What cannot be
// removed stays for the next time.
void RemoveLeftovers(const DiskPath& folder);

} // namespace paneda
