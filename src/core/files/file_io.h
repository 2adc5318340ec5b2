#pragma once

#include "core/disk/disk_entries.h"
#include "core/disk/disk_path.h"
#include "core/disk/file_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace paneda {

class DiskFile;

// The path of the entry of `folder` that has this name in any case of letters. An exact match wins, then the
// first in byte order. If there is none, and on a host that itself ignores case: the folder and the name as
// given.
QString FindEntry(const QString& folder, const QString& name);
DiskPath FindEntry(const DiskPath& folder, const QString& name);

// Whether there is an entry of this name; a link counts, whatever it leads to, and so does what cannot be
// looked at.
bool EntryExists(const DiskPath& path);

// Whole contents of a regular file. Fails when it does not exist, is no regular file (a pipe or a device is
// refused without waiting for it), has more than `limit` bytes whatever its size says, or cannot be read.
tl::expected<QByteArray, FileError> ReadFileBytes(const DiskPath& path, qint64 limit);

// How the names of the temporary files of ReplaceFile begin. One stays behind when the program is killed
// meanwhile; it is never listed, and may be deleted at any time.
inline constexpr QStringView kUnfinishedPrefix = u".paneda-";

// Replaces a file whole: a temporary file beside it, flushed to the disk, then renamed over it. On failure
// the old file stays as it was, and one that may not be written is not replaced. The new file has the old
// one's group and permissions from its first byte on. Where the path is a link that is followed, the file
// that it leads to is replaced.
FileResult ReplaceFile(const DiskPath& path, const QByteArray& bytes);

// The same; a file that is made has the group and permissions of `like`, if that is a file: for a file that
// takes the place of another one.
FileResult ReplaceFileLike(const DiskPath& path, const QByteArray& bytes, const DiskPath& like);

// The same for what a function writes.
using FileWriter = std::function<EntryResult(DiskFile& file)>;
FileResult ReplaceFileBy(const DiskPath& path, const FileWriter& write, const DiskPath& like);

// Makes one folder; a folder that exists is no failure.
FileResult MakeFolder(const DiskPath& path);

// The same, with the folders above it that are missing.
FileResult MakeFolderPath(const DiskPath& path);

// Names of the folders (files) in a folder, in byte order, without hidden ones and unfinished files. A folder
// that cannot be read has none. Left out are names that hold a backslash, which the stored form of a path
// cannot tell from a separator, and names whose bytes are not valid in the file system's encoding. A shortcut
// (.lnk) is a file.
QStringList ListFolders(const DiskPath& folder);
QStringList ListFiles(const DiskPath& folder);

// The same for files and for what stands in the place of one: pipes, devices, sockets. For a reader that
// wants to report what cannot be read.
QStringList ListNoFolders(const DiskPath& folder);

// Whether a listing of files or folders shows an entry, as far as its name decides.
bool IsListed(const DiskEntry& entry);

} // namespace paneda
