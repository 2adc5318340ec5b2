#include "core/disk/disk_file.h"

#include "core/disk/windows/place.h"

#include <algorithm>

namespace paneda {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr qint64 kMostAtOnce = 64 * 1024 * 1024; // bytes; a call takes 32 bits

HANDLE HandleOf(qintptr handle) {
    return reinterpret_cast<HANDLE>(handle);
}

} // namespace

tl::expected<DiskFile, EntryError> DiskFile::OpenToRead(const DiskPath& path) {
    const auto missing = [&] {
        return tl::make_unexpected(EntryError{
            EntryProblem::Missing, Failure(path.Text(), QStringLiteral("The file does not exist.")).value()});
    };
    const auto place = Locate(path);
    if (!place && place.error().Problem == EntryProblem::Missing)
        return missing();
    if (!place)
        return tl::make_unexpected(place.error());
    const auto noFile = [&] { return Refused(path.Text(), QStringLiteral("This is not a file.")); };
    const EntryAttributes found = AttributesOf(place->Path);
    if (found.Attributes == INVALID_FILE_ATTRIBUTES)
        return missing();
    if (place->RefusesLinks && found.IsLink())
        return Refused(path.Text(), kLinkRefused);
    if ((found.Attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return noFile();
    Handle file(CreateFileW(place->Path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL | place->NoFollow(), nullptr));
    if (!file.IsOpen())
        return SystemFailure(path.Text(), GetLastError());
    if (GetFileType(file.Get()) != FILE_TYPE_DISK)
        return noFile();
    FILE_ATTRIBUTE_TAG_INFO opened{};
    const bool isKnown =
        GetFileInformationByHandleEx(file.Get(), FileAttributeTagInfo, &opened, sizeof opened) != FALSE;
    if (isKnown && place->RefusesLinks && EntryAttributes{opened.FileAttributes, opened.ReparseTag}.IsLink())
        return Refused(path.Text(), kLinkRefused);
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file.Get(), &size) == FALSE)
        return SystemFailure(path.Text(), GetLastError());
    return DiskFile(reinterpret_cast<qintptr>(file.Release()), path.Text(), size.QuadPart);
}

// A new file has the access list of its folder, also where it takes the place of another one.
tl::expected<DiskFile, EntryError> DiskFile::Create(const DiskPath& path, const DiskPath*) {
    const auto place = Locate(path);
    if (!place)
        return tl::make_unexpected(place.error());
    Handle file(CreateFileW(place->Path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_NORMAL | place->NoFollow(), nullptr));
    if (!file.IsOpen())
        return SystemFailure(path.Text(), GetLastError());
    return DiskFile(reinterpret_cast<qintptr>(file.Release()), path.Text(), 0);
}

tl::expected<QByteArray, EntryError> DiskFile::Read(qint64 most) {
    QByteArray bytes(most, Qt::Uninitialized);
    qint64 size = 0;
    while (size < most) {
        DWORD part = 0;
        const DWORD wanted = DWORD(std::min(most - size, kMostAtOnce));
        if (ReadFile(HandleOf(handle_), bytes.data() + size, wanted, &part, nullptr) == FALSE)
            return SystemFailure(path_, GetLastError());
        if (part == 0)
            break;
        size += part;
    }
    bytes.truncate(size);
    return bytes;
}

EntryResult DiskFile::Write(const QByteArray& bytes) {
    qint64 done = 0;
    while (done < bytes.size()) {
        DWORD part = 0;
        const DWORD wanted = DWORD(std::min(bytes.size() - done, kMostAtOnce));
        if (WriteFile(HandleOf(handle_), bytes.constData() + done, wanted, &part, nullptr) == FALSE)
            return SystemFailure(path_, GetLastError());
        done += part;
    }
    return {};
}

// A server asks this host for what it keeps as soon as another one opens the file.
void DiskFile::Send() {}

EntryResult DiskFile::Flush() {
    if (FlushFileBuffers(HandleOf(handle_)) == FALSE)
        return SystemFailure(path_, GetLastError());
    return {};
}

EntryResult DiskFile::CloseInSystem(qintptr handle, const QString& path) {
    if (CloseHandle(HandleOf(handle)) == FALSE)
        return SystemFailure(path, GetLastError());
    return {};
}

// A new folder has the access list of the one it lies in.
EntryResult CopyPermissions(const DiskPath&, const DiskPath&) {
    return {};
}

} // namespace paneda
