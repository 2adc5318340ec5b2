#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

#include <vector>

namespace paneda {

// Why a file could not be read or written.
struct FileError {
    QString Path;
    QString Reason;

    // One line for the user: the path and the reason.
    QString Text() const;
};

using FileResult = tl::expected<void, FileError>;

// A failed result. The path is shown as the host writes paths.
tl::unexpected<FileError> Failure(const QString& path, const QString& reason);

// A list of failures as one text, a line each.
QString FailureText(const std::vector<FileError>& failures);

// The path of the entry of `folder` that has this name in any case of letters. An exact match wins, then the
// first in byte order. If there is none, and on a host that itself ignores case: the folder and the name as
// given.
QString FindEntry(const QString& folder, const QString& name);

// Whole contents of a regular file. Fails when it does not exist, is no regular file (a pipe would block), is
// larger than `limit` bytes, or cannot be read.
tl::expected<QByteArray, FileError> ReadFileBytes(const QString& path, qint64 limit);

// How the names of the temporary files of ReplaceFile begin. One stays behind when the program is killed
// meanwhile; it is never listed, and may be deleted at any time.
inline constexpr QStringView kUnfinishedPrefix = u".paneda-";

// Replaces a file whole: a temporary file beside it, flushed to the disk, then renamed over it. On failure
// the old file stays as it was, and one that may not be written is not replaced. The new file has the old
// one's permissions; where the path is a link, the file that it leads to is replaced.
FileResult ReplaceFile(const QString& path, const QByteArray& bytes);

// Makes one folder; a folder that exists is no failure.
FileResult MakeFolder(const QString& path);

// Names of the folders (files) in a folder, in byte order, without hidden ones and unfinished files. A folder
// that cannot be read has none. Left out are names that hold a backslash, which the stored form of a path
// cannot tell from a separator, and names whose bytes are not valid in the file system's encoding. A shortcut
// (.lnk) is a file.
QStringList ListFolders(const QString& folder);
QStringList ListFiles(const QString& folder);

} // namespace paneda
