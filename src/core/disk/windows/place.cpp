#include "core/disk/windows/place.h"

#include <QDir>

#include <utility>

namespace paneda {

namespace {

constexpr DWORD kShareAllButDelete = FILE_SHARE_READ | FILE_SHARE_WRITE;

EntryProblem ProblemOf(DWORD error) {
    switch (error) {
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
    case ERROR_DIR_NOT_EMPTY:
        return EntryProblem::AlreadyThere;
    case ERROR_NOT_SAME_DEVICE:
        return EntryProblem::OtherVolume;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return EntryProblem::Missing;
    default:
        return EntryProblem::Other;
    }
}

// The form that has no limit of length and takes names as they are.
std::wstring LongPath(const QString& path) {
    QString native = QDir::toNativeSeparators(QDir::cleanPath(QDir(path).absolutePath()));
    if (native.startsWith(QStringLiteral("\\\\?\\")))
        return native.toStdWString();
    if (native.startsWith(QStringLiteral("\\\\")))
        native = QStringLiteral("UNC\\") + native.mid(2);
    return L"\\\\?\\" + native.toStdWString();
}

// To read its names, since a handle for less does not keep others from renaming the folder.
tl::expected<Handle, EntryError> HoldFolder(const QString& path) {
    const std::wstring name = LongPath(path);
    Handle folder(CreateFileW(name.c_str(), FILE_LIST_DIRECTORY, kShareAllButDelete, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!folder.IsOpen())
        return SystemFailure(path, GetLastError());
    FILE_ATTRIBUTE_TAG_INFO found{};
    if (GetFileInformationByHandleEx(folder.Get(), FileAttributeTagInfo, &found, sizeof found) == FALSE)
        return SystemFailure(path, GetLastError());
    if (EntryAttributes{found.FileAttributes, found.ReparseTag}.IsLink())
        return Refused(path, kLinkRefused);
    if ((found.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        return SystemFailure(path, ERROR_PATH_NOT_FOUND);
    return folder;
}

} // namespace

Handle::Handle(Handle&& other) noexcept : handle_(other.Release()) {}

Handle& Handle::operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

Handle::~Handle() {
    if (IsOpen())
        CloseHandle(handle_);
}

HANDLE Handle::Release() {
    return std::exchange(handle_, INVALID_HANDLE_VALUE);
}

tl::expected<Place, EntryError> Locate(const DiskPath& path) {
    if (path.Text().isEmpty() || path.Text().contains(QChar(0)))
        return Refused(path.Text(), QStringLiteral("No file can have this name."));
    Place place{{}, LongPath(path.Text()), path.Text(), false};
    if (!path.RefusesLinks() || path.IsRoot())
        return place;
    const std::optional<QStringList> names = path.NamesBelowRoot();
    if (!names)
        return Refused(path.Text(), QStringLiteral("The path leads out of %1.").arg(path.Root()));
    DiskPath folder = DiskPath::Below(path.Root(), path.Root());
    for (qsizetype i = 0; i + 1 < names->size(); ++i) {
        folder = folder / names->at(i);
        auto held = HoldFolder(folder.Text());
        if (!held)
            return tl::make_unexpected(held.error());
        place.Held.push_back(std::move(*held));
    }
    place.RefusesLinks = true;
    return place;
}

bool EntryAttributes::IsLink() const {
    return Attributes != INVALID_FILE_ATTRIBUTES && (Attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(Tag);
}

EntryAttributes AttributesOf(const std::wstring& path) {
    // A search would take them for any letters; the path's beginning has a question mark of its own.
    if (path.find_first_of(L"*?", 4) != std::wstring::npos)
        return {};
    WIN32_FIND_DATAW found;
    const HANDLE search =
        FindFirstFileExW(path.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0);
    if (search != INVALID_HANDLE_VALUE) {
        FindClose(search);
        return {found.dwFileAttributes, found.dwReserved0};
    }
    // The root of a volume is no entry of a folder, and a folder need not be one that may be listed.
    const Handle entry(CreateFileW(
        path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    FILE_ATTRIBUTE_TAG_INFO opened{};
    if (!entry.IsOpen() ||
        GetFileInformationByHandleEx(entry.Get(), FileAttributeTagInfo, &opened, sizeof opened) == FALSE)
        return {};
    return {opened.FileAttributes, opened.ReparseTag};
}

tl::unexpected<EntryError> SystemFailure(const QString& path, DWORD error) {
    return tl::make_unexpected(
        EntryError{ProblemOf(error), Failure(path, qt_error_string(int(error))).value()});
}

tl::unexpected<EntryError> Refused(const QString& path, const QString& reason) {
    return tl::make_unexpected(EntryError{EntryProblem::Other, Failure(path, reason).value()});
}

} // namespace paneda
