#include "core/files/file_io.h"

#include "core/disk/disk_file.h"
#include "core/text/text_rules.h"

#include <QDir>

#include <algorithm>

namespace paneda {

namespace {

constexpr qint64 kChunk = 64 * 1024; // bytes
const QString kTooLarge = QStringLiteral("The file is larger than %1 bytes.");

enum class Wanted { Files, Folders, NoFolders, Everything };

bool HasUsableName(const DiskEntry& entry) {
    return !entry.Name.isEmpty() && !entry.Name.contains(u'\\') && !entry.Name.startsWith(kUnfinishedPrefix);
}

bool IsWanted(const DiskEntry& entry, Wanted wanted) {
    if (wanted == Wanted::Everything)
        return HasUsableName(entry);
    if (!IsListed(entry))
        return false;
    if (wanted == Wanted::NoFolders)
        return entry.Kind == EntryKind::File || entry.Kind == EntryKind::Other;
    return entry.Kind == (wanted == Wanted::Files ? EntryKind::File : EntryKind::Folder);
}

QStringList ListNames(const DiskPath& folder, Wanted wanted) {
    QStringList names;
    // A folder that cannot be read has no entries.
    for (const DiskEntry& entry : ListEntries(folder).value_or(std::vector<DiskEntry>())) {
        if (IsWanted(entry, wanted))
            names.append(entry.Name);
    }
    std::sort(names.begin(), names.end(),
              [](const QString& a, const QString& b) { return CompareText(a, b) < 0; });
    return names;
}

} // namespace

bool IsListed(const DiskEntry& entry) {
    return HasUsableName(entry) && !entry.Hidden;
}

QString FindEntry(const QString& folder, const QString& name) {
    return FindEntry(DiskPath(folder), name).Text();
}

DiskPath FindEntry(const DiskPath& folder, const QString& name) {
    const DiskPath exact = folder / name;
    if (EntryExists(exact))
        return exact;
    const QStringList names = ListNames(folder, Wanted::Everything);
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&name](const QString& entry) { return SameName(entry, name); });
    return found == names.end() ? exact : folder / *found;
}

bool EntryExists(const DiskPath& path) {
    return LookAt(path).Kind != EntryKind::Missing;
}

tl::expected<QByteArray, FileError> ReadFileBytes(const DiskPath& path, qint64 limit) {
    auto file = DiskFile::OpenToRead(path);
    if (!file)
        return tl::make_unexpected(file.error().Error);
    if (file->Size() > limit)
        return Failure(path.Text(), kTooLarge.arg(limit));
    QByteArray bytes;
    // The size may be wrong: a file of the system has none, and another process may be writing.
    for (qint64 wanted = file->Size() + 1;; wanted = kChunk) {
        const auto part = file->Read(wanted);
        if (!part)
            return tl::make_unexpected(part.error().Error);
        bytes += *part;
        if (bytes.size() > limit)
            return Failure(path.Text(), kTooLarge.arg(limit));
        if (part->size() < wanted)
            return bytes;
    }
}

FileResult MakeFolder(const DiskPath& path) {
    return LookAt(path).Kind == EntryKind::Folder ? FileResult() : WithoutProblem(MakeNewFolder(path));
}

FileResult MakeFolderPath(const DiskPath& path) {
    const DiskPath above = path.Parent();
    // A drive that is not there lies in itself.
    if (above.Text() != path.Text() && LookAt(above).Kind == EntryKind::Missing) {
        if (const FileResult made = MakeFolderPath(above); !made)
            return made;
    }
    return MakeFolder(path);
}

QStringList ListFolders(const DiskPath& folder) {
    return ListNames(folder, Wanted::Folders);
}

QStringList ListFiles(const DiskPath& folder) {
    return ListNames(folder, Wanted::Files);
}

QStringList ListNoFolders(const DiskPath& folder) {
    return ListNames(folder, Wanted::NoFolders);
}

} // namespace paneda
