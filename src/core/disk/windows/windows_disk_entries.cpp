#include "core/disk/disk_entries.h"

#include "core/disk/windows/place.h"

#include <QFileInfo>

namespace paneda {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr qint64 kTicksPerMsec = 10'000;
constexpr qint64 kTicksTo1970 = 116'444'736'000'000'000; // from 1601, where the system begins to count

EntryKind KindOf(const EntryAttributes& found) {
    if (found.Attributes == INVALID_FILE_ATTRIBUTES)
        return EntryKind::Missing;
    if (found.IsLink())
        return EntryKind::Link;
    return (found.Attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::Folder : EntryKind::File;
}

QDateTime TimeOf(const FILETIME& time) {
    const qint64 ticks = qint64(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return QDateTime::fromMSecsSinceEpoch((ticks - kTicksTo1970) / kTicksPerMsec);
}

// What a path leads to; a link that leads nowhere is a link.
EntryKind KindThrough(const std::wstring& path) {
    const Handle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION found{};
    if (!file.IsOpen() || GetFileInformationByHandle(file.Get(), &found) == FALSE)
        return EntryKind::Link;
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::Folder : EntryKind::File;
}

template <typename Call>
EntryResult OnPlace(const DiskPath& path, const Call& call) {
    const auto place = Locate(path);
    if (!place)
        return tl::make_unexpected(place.error());
    if (call(place->Path) == FALSE)
        return SystemFailure(path.Text(), GetLastError());
    return {};
}

// A rename between volumes is also refused with less exact errors.
bool LieOnOneVolume(const std::wstring& a, const std::wstring& b) {
    wchar_t volumeA[MAX_PATH + 1] = {};
    wchar_t volumeB[MAX_PATH + 1] = {};
    return GetVolumePathNameW(a.c_str(), volumeA, MAX_PATH) == FALSE ||
           GetVolumePathNameW(b.c_str(), volumeB, MAX_PATH) == FALSE ||
           CompareStringOrdinal(volumeA, -1, volumeB, -1, TRUE) == CSTR_EQUAL;
}

EntryResult Move(const DiskPath& from, const DiskPath& to, DWORD flags) {
    const auto source = Locate(from);
    if (!source)
        return tl::make_unexpected(source.error());
    const auto target = Locate(to);
    if (!target)
        return tl::make_unexpected(target.error());
    if (MoveFileExW(source->Path.c_str(), target->Path.c_str(), flags) != FALSE)
        return {};
    DWORD error = GetLastError();
    if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS && error != ERROR_FILE_NOT_FOUND &&
        error != ERROR_PATH_NOT_FOUND && !LieOnOneVolume(source->Path, target->Path))
        error = ERROR_NOT_SAME_DEVICE;
    // A folder in the way is refused like one that may not be touched.
    else if (error == ERROR_ACCESS_DENIED && (flags & MOVEFILE_REPLACE_EXISTING) == 0 &&
             AttributesOf(target->Path).Attributes != INVALID_FILE_ATTRIBUTES)
        error = ERROR_ALREADY_EXISTS;
    return SystemFailure(from.Text(), error);
}

// Every kind of link is removed like what it stands for, a file or a folder.
BOOL RemoveOne(const std::wstring& path, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        SetFileAttributesW(path.c_str(), attributes & ~DWORD(FILE_ATTRIBUTE_READONLY));
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? RemoveDirectoryW(path.c_str())
                                                        : DeleteFileW(path.c_str());
}

void RemoveAll(const DiskPath& path, FileResult& first) {
    const auto note = [&](const FileResult& result) {
        if (!result && first)
            first = result;
    };
    const auto place = Locate(path);
    if (!place)
        return note(tl::make_unexpected(place.error().Error));
    const EntryAttributes found = AttributesOf(place->Path);
    if (KindOf(found) == EntryKind::Missing)
        return;
    if (KindOf(found) == EntryKind::Folder) {
        const auto entries = ListEntries(path);
        if (!entries)
            note(tl::make_unexpected(entries.error().Error));
        else
            for (const DiskEntry& entry : *entries)
                RemoveAll(path / entry.Name, first);
    }
    if (RemoveOne(place->Path, found.Attributes) == FALSE)
        note(WithoutProblem(SystemFailure(path.Text(), GetLastError())));
}

} // namespace

EntryState LookAt(const DiskPath& path) {
    const auto place = Locate(path);
    if (!place)
        return {place.error().Problem == EntryProblem::Missing ? EntryKind::Missing : EntryKind::Unknown};
    const EntryAttributes found = AttributesOf(place->Path);
    EntryKind kind = KindOf(found);
    if (kind == EntryKind::Link && !place->RefusesLinks)
        kind = KindThrough(place->Path);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (kind == EntryKind::Missing ||
        GetFileAttributesExW(place->Path.c_str(), GetFileExInfoStandard, &data) == FALSE)
        return {kind};
    const qint64 size = qint64(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
    const bool isWritable = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0;
    return {kind, size, TimeOf(data.ftLastWriteTime), isWritable};
}

tl::expected<std::vector<DiskEntry>, EntryError> ListEntries(const DiskPath& folder) {
    const auto place = Locate(folder);
    if (!place)
        return tl::make_unexpected(place.error());
    if (place->RefusesLinks && AttributesOf(place->Path).IsLink())
        return Refused(folder.Text(), kLinkRefused);
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileExW((place->Path + L"\\*").c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE)
        return SystemFailure(folder.Text(), GetLastError());
    std::vector<DiskEntry> entries;
    do {
        const QString name = QString::fromWCharArray(found.cFileName);
        if (name == u"." || name == u"..")
            continue;
        EntryKind kind = KindOf({found.dwFileAttributes, found.dwReserved0});
        if (kind == EntryKind::Link && !folder.RefusesLinks())
            kind = KindThrough(place->Path + L'\\' + found.cFileName);
        entries.push_back({name, kind, (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0});
    } while (FindNextFileW(search, &found) != FALSE);
    const DWORD error = GetLastError();
    FindClose(search);
    if (error != ERROR_NO_MORE_FILES)
        return SystemFailure(folder.Text(), error);
    return entries;
}

EntryResult MakeNewFolder(const DiskPath& path) {
    return OnPlace(path, [](const std::wstring& name) { return CreateDirectoryW(name.c_str(), nullptr); });
}

EntryResult CheckNameLength(const DiskPath& path) {
    // Of NTFS, FAT and exFAT, in units of UTF-16.
    constexpr qsizetype kLongestName = 255;
    return path.Name().size() <= kLongestName ? EntryResult()
                                              : SystemFailure(path.Text(), ERROR_FILENAME_EXCED_RANGE);
}

EntryResult RenameEntry(const DiskPath& from, const DiskPath& to) {
    return Move(from, to, 0);
}

EntryResult RenameOver(const DiskPath& from, const DiskPath& to) {
    return Move(from, to, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

EntryResult NameTwice(const DiskPath& file, const DiskPath& second) {
    const auto target = Locate(second);
    if (!target)
        return tl::make_unexpected(target.error());
    return OnPlace(file, [&](const std::wstring& name) {
        return CreateHardLinkW(target->Path.c_str(), name.c_str(), nullptr);
    });
}

EntryResult RemoveFile(const DiskPath& path) {
    return OnPlace(path, [](const std::wstring& name) {
        const DWORD attributes = AttributesOf(name).Attributes;
        return RemoveOne(name, attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes);
    });
}

EntryResult CopyLink(const DiskPath& from, const DiskPath&) {
    return Refused(from.Text(), QStringLiteral("This is a link. Windows does not copy links."));
}

FileResult RemoveTree(const DiskPath& path) {
    FileResult first;
    // Nothing in the tree is followed, wherever it lies.
    RemoveAll(path.RefusesLinks() ? path : DiskPath::Below(QFileInfo(path.Text()).path(), path.Text()),
              first);
    return first;
}

// The system writes names with the files that have them.
EntryResult FlushFolder(const DiskPath&) {
    return {};
}

bool IsProcessRunning(qint64 processId) {
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, DWORD(processId));
    if (process == nullptr)
        return GetLastError() == ERROR_ACCESS_DENIED;
    const bool runs = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    CloseHandle(process);
    return runs;
}

} // namespace paneda
