#include "core/files/file_tree.h"

#include "core/disk/disk_file.h"
#include "core/files/file_io.h"

namespace paneda {

namespace {

constexpr qint64 kChunk = 1024 * 1024; // bytes

EntryResult CopyBytes(DiskFile& from, DiskFile& to) {
    for (;;) {
        const auto bytes = from.Read(kChunk);
        if (!bytes)
            return tl::make_unexpected(bytes.error());
        if (const EntryResult written = to.Write(*bytes); !written || bytes->size() < kChunk)
            return written;
    }
}

FileResult CopyAll(const DiskPath& from, const DiskPath& to);

FileResult CopyEntries(const DiskPath& from, const DiskPath& to) {
    const auto entries = ListEntries(from);
    if (!entries)
        return tl::make_unexpected(entries.error().Error);
    for (const DiskEntry& entry : *entries) {
        // What the text of a path cannot hold would be lost with its folder.
        if (entry.Name.isEmpty())
            return Failure(from.Text(), QStringLiteral("The name of an entry cannot be read."));
        if (const FileResult copied = CopyAll(from / entry.Name, to / entry.Name); !copied)
            return copied;
    }
    // At last, since one that may not be written takes no entries.
    const EntryResult copied = CopyPermissions(from, to);
    return WithoutProblem(copied ? FlushFolder(to) : copied);
}

FileResult CopyAll(const DiskPath& from, const DiskPath& to) {
    switch (LookAt(from).Kind) {
    case EntryKind::Link:
        return WithoutProblem(CopyLink(from, to));
    case EntryKind::Folder:
        if (const EntryResult made = MakeNewFolder(to); !made)
            return WithoutProblem(made);
        return CopyEntries(from, to);
    default:
        return CopyWholeFile(from, to, from);
    }
}

} // namespace

FileResult CopyWholeFile(const DiskPath& from, const DiskPath& to, const DiskPath& like) {
    auto source = DiskFile::OpenToRead(from);
    if (!source)
        return tl::make_unexpected(source.error().Error);
    return ReplaceFileBy(
        to, [&source](DiskFile& target) { return CopyBytes(*source, target); }, like);
}

FileResult CopyTree(const DiskPath& from, const DiskPath& to) {
    // Nothing within the folder is followed, wherever it lies.
    const auto within = [](const DiskPath& path) {
        return path.RefusesLinks() ? path : DiskPath::Below(path.Parent().Text(), path.Text());
    };
    return CopyAll(within(from), within(to));
}

} // namespace paneda
