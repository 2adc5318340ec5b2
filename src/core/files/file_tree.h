#pragma once

#include "core/files/file_io.h"

namespace paneda {

// Files and folders as wholes: made, renamed, copied and removed.

enum class EntryProblem {
    AlreadyThere, // something has the wished name
    OtherVolume,  // a rename cannot reach there
    Missing,      // what was to be renamed, or the folder it was to go to, is not there
    Other,
};

struct EntryError {
    EntryProblem Problem = EntryProblem::Other;
    FileError Error;
};

using EntryResult = tl::expected<void, EntryError>;

// Makes one folder; fails if it exists. Of several processes that try at the same time one succeeds.
EntryResult MakeNewFolder(const QString& path);

// Renames a file, a folder or a link, all at once, and never onto an existing entry.
EntryResult RenameEntry(const QString& from, const QString& to);

// Whether there is an entry of this name; a link counts, whatever it leads to.
bool EntryExists(const QString& path);

// Copies a file, replacing `to` whole. Fails when `from` is no regular file.
FileResult CopyWholeFile(const QString& from, const QString& to);

// Copies a folder with all that is in it to a name that must be free; links are copied as links. Every file
// is flushed. Stops at the first failure and leaves what has been copied.
FileResult CopyTree(const QString& from, const QString& to);

// Removes a file, a link, or a folder with all that is in it; what a link leads to stays. A missing path is
// not a failure. Continues after a failure and returns the first one.
FileResult RemoveTree(const QString& path);

} // namespace paneda
