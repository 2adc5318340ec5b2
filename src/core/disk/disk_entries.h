#pragma once

#include "core/disk/disk_path.h"
#include "core/disk/file_error.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

namespace paneda {

// Entries of folders: files, folders, links. Each call is done whole or not at all.

enum class EntryKind {
    Missing,
    File,
    Folder,
    Link,    // that is not followed, or leads nowhere
    Other,   // a pipe, a device, a socket
    Unknown, // it could not be looked at
};

struct EntryState {
    EntryKind Kind = EntryKind::Missing;
    qint64 Size = 0;         // bytes
    QDateTime Modified = {}; // local time
    bool Writable = false;   // as far as the system tells
};

// What has this name. Where links are followed, what a link leads to.
EntryState LookAt(const DiskPath& path);

// What a path leads to, through its last link if it is one; empty if it is none. Of a path whose links are
// refused: empty.
QString LinkTarget(const DiskPath& path);

struct DiskEntry {
    QString Name; // empty for a name that no text can hold
    EntryKind Kind = EntryKind::Unknown;
    bool Hidden = false;
};

// All entries of a folder, in no order, without "." and "..".
tl::expected<std::vector<DiskEntry>, EntryError> ListEntries(const DiskPath& folder);

// Makes one folder; fails if an entry has the name. Of several processes that try at the same time one
// succeeds.
EntryResult MakeNewFolder(const DiskPath& path);

// Fails when the disk takes no name of this length. Nothing is made, and nothing else is checked.
EntryResult CheckNameLength(const DiskPath& path);

// Renames a file, a folder or a link, all at once, and never onto an existing entry. A new spelling of the
// same name is possible where the host ignores case.
EntryResult RenameEntry(const DiskPath& from, const DiskPath& to);

// The same for a file, onto whatever file or link has the name.
EntryResult RenameOver(const DiskPath& from, const DiskPath& to);

// A second name for a file. Fails where the file system has none.
EntryResult NameTwice(const DiskPath& file, const DiskPath& second);

// Removes a file or a link, even one that may not be written; what a link leads to stays. A missing one is a
// failure.
EntryResult RemoveFile(const DiskPath& path);

// A link that leads to the same place, whatever that is.
EntryResult CopyLink(const DiskPath& from, const DiskPath& to);

// Removes a file, a link, or a folder with all that is in it; what a link leads to stays, also when another
// process puts the link there meanwhile. A missing path is not a failure. Continues after a failure and
// returns the first one.
FileResult RemoveTree(const DiskPath& path);

// Returns when the names in a folder are on the disk: a file that was renamed into it has its new name also
// after a power failure. Fails as the disk does. A file system that cannot do this for a folder does it with
// the files.
EntryResult FlushFolder(const DiskPath& folder);

// Returns when files that have been written and closed are on the disk with their names, so that a power
// failure loses none of them. Fails as the disk does. Blocks as long as the disk takes, which may be seconds
// while other programs write to it.
FileResult FlushFilesToDisk(const std::vector<DiskPath>& files);

// Whether a process of this machine is running; true if the system does not tell.
bool IsProcessRunning(qint64 processId);

} // namespace paneda
