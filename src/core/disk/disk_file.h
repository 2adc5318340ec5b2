#pragma once

#include "core/disk/disk_path.h"
#include "core/disk/file_error.h"

#include <QByteArray>

namespace paneda {

// An open file. Errors carry the path as the user knows it.
class DiskFile {
public:
    // Opens a regular file. Anything else is refused without waiting for it: a pipe, a device, a folder.
    static tl::expected<DiskFile, EntryError> OpenToRead(const DiskPath& path);

    // Makes a new file; fails if an entry has the name. With `like`, an existing file: the new one has its
    // group, permissions and access list before anything can be written to it, so that whoever could use the
    // old file can use the new one and nobody else. What the system refuses to keep is left as it is for new
    // files.
    static tl::expected<DiskFile, EntryError> Create(const DiskPath& path, const DiskPath* like = nullptr);

    DiskFile(DiskFile&& other) noexcept;
    DiskFile& operator=(DiskFile&& other) noexcept;
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;
    // Closes the file; what it still had to report is lost.
    ~DiskFile();

    // In bytes, as the system told it when the file was opened to be read; there may be more or less to read.
    qint64 Size() const { return size_; }

    // The next bytes: as many as asked for, fewer at the end of the file.
    tl::expected<QByteArray, EntryError> Read(qint64 most);

    EntryResult Write(const QByteArray& bytes);

    // Sends what was written to the server, where other hosts see it. Does not wait, for neither the server
    // nor its disk, and what fails shows at Flush or Close.
    void Send();

    // Returns when all that was written is on the disk. Fails as the disk does.
    EntryResult Flush();

    // A server may report only now that it could not store what was written.
    EntryResult Close();

private:
    DiskFile(qintptr handle, const QString& path, qint64 size) : handle_(handle), path_(path), size_(size) {}

    // What differs between systems of closing.
    static EntryResult CloseInSystem(qintptr handle, const QString& path);

    static constexpr qintptr kClosed = -1;
    qintptr handle_ = kClosed; // of the system
    QString path_;
    qint64 size_ = 0;
};

// Gives a folder the group, permissions and access list of another one, as far as the system takes them.
EntryResult CopyPermissions(const DiskPath& from, const DiskPath& to);

} // namespace paneda
