#pragma once

#include "core/disk/disk_path.h"
#include "core/disk/file_error.h"

#include <string>
#include <vector>

#include <windows.h>

namespace paneda {

class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(Handle&& other) noexcept;
    Handle& operator=(Handle&& other) noexcept;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle();

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }
    HANDLE Release();

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

// Where an entry lies. Where links are refused, the folders on the way from the root are held open without
// leave to rename or delete them: none is a link, and no link can be put in its place while this exists.
struct Place {
    std::vector<Handle> Held;
    std::wstring Path; // absolute, without the system's limit of 260 characters
    QString Text;      // the path, for messages
    bool RefusesLinks = false;

    DWORD NoFollow() const { return RefusesLinks ? FILE_FLAG_OPEN_REPARSE_POINT : 0; }
};

tl::expected<Place, EntryError> Locate(const DiskPath& path);

// The attributes of an entry itself and, for a reparse point, its tag. INVALID_FILE_ATTRIBUTES for none.
struct EntryAttributes {
    DWORD Attributes = INVALID_FILE_ATTRIBUTES;
    DWORD Tag = 0;

    // A symbolic link or a junction; files that a cloud keeps are none.
    bool IsLink() const;
};
EntryAttributes AttributesOf(const std::wstring& path);

// The failure that GetLastError names.
tl::unexpected<EntryError> SystemFailure(const QString& path, DWORD error);

tl::unexpected<EntryError> Refused(const QString& path, const QString& reason);

inline const QString kLinkRefused =
    QStringLiteral("This is a link. Links are not followed in a folder that others write to.");

} // namespace paneda
