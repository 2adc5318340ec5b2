#pragma once

#include "core/disk/disk_path.h"
#include "core/disk/file_error.h"

#include <QByteArray>

#include <fcntl.h>

namespace paneda {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int file) : file_(file) {}
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    bool IsOpen() const { return file_ >= 0; }
    int Get() const { return file_; }
    int Release();

private:
    int file_ = -1;
};

// Where the *at() functions of the system find an entry. Where links are refused the folder is open and was
// reached without one; else it is the current folder, and the name is a whole path.
struct Place {
    Descriptor Folder;
    QByteArray Name;
    QString Text; // the path, for messages
    bool RefusesLinks = false;

    int At() const { return Folder.IsOpen() ? Folder.Get() : AT_FDCWD; }
    int NoFollow() const { return RefusesLinks ? O_NOFOLLOW : 0; }
    int StatNoFollow() const { return RefusesLinks ? AT_SYMLINK_NOFOLLOW : 0; }
};

tl::expected<Place, EntryError> Locate(const DiskPath& path);

// Opens an entry, without waiting for the other end of a pipe.
tl::expected<Descriptor, EntryError> OpenAt(const Place& place, int flags, mode_t mode = 0);

// The failure that `errno` names.
tl::unexpected<EntryError> SystemFailure(const QString& path, int error);

// The same for a call on an entry; says so if the entry is a link that may not be followed.
tl::unexpected<EntryError> PlaceFailure(const Place& place, int error);

inline const QString kLinkRefused =
    QStringLiteral("This is a link. Links are not followed in a folder that others write to.");

} // namespace paneda
