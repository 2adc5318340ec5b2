#pragma once

#include "core/files/file_guard.h"
#include "core/files/file_io.h"
#include "notes/note_place.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <utility>
#include <vector>

namespace paneda {

// Keys and values of the section `Properties`.
using NoteKeyValues = std::vector<std::pair<QStringView, QString>>;

// The steps by which notes change the disk. Each is done whole or not at all, so a program that is killed has
// done the first few of them. Tests derive from this class to stop between any two steps.
class NoteDisk {
public:
    NoteDisk() = default;
    virtual ~NoteDisk() = default;
    Q_DISABLE_COPY_MOVE(NoteDisk)

    // A new file can be used by those who can use `like`, if that is a file.
    virtual FileResult Replace(const DiskPath& path, const QByteArray& bytes, const DiskPath& like);

    // Copies a file under a new name. One that is larger than any note is renamed instead: its copy could
    // fill the disk.
    virtual FileResult Copy(const DiskPath& from, const DiskPath& to);

    // Makes sure that the names in a folder are on the disk, so that an older form of a note may go.
    virtual FileResult Flush(const DiskPath& folder);

    // A missing file is not a failure.
    virtual FileResult Remove(const DiskPath& path);

    // Writes several keys of a folder's Properties.ini at once, making the file if it is missing. The folder
    // is the note's or one above it, up to the tree's root. Fails where the folder is missing and for a value
    // that is too long. `wait` is the time that the whole operation may wait for other processes.
    virtual FileResult WriteKeys(const NotePlace& place, const DiskPath& folder, const NoteKeyValues& keys,
                                 GuardWait& wait);
};

} // namespace paneda
