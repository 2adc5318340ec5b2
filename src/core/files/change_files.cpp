#include "core/files/change_files.h"

#include "core/files/file_tree.h"
#include "core/files/staged_file.h"

#include <algorithm>

namespace paneda {

namespace {

// One file on its way to its change.
struct Change {
    Staged File;
    bool Removes = false;
};

tl::expected<Staged, FileError> StageRemoval(const DiskPath& path) {
    const EntryState old = LookAt(path);
    if (old.Kind == EntryKind::Link)
        return Failure(path.Text(), QStringLiteral("This is a link."));
    if (old.Kind != EntryKind::Missing && (old.Kind != EntryKind::File || !old.Writable))
        return Failure(path.Text(), QStringLiteral("The file cannot be written."));
    return Staged{path, path, {}, {}};
}

FileResult StageAll(const std::vector<FileChange>& wanted, std::vector<Change>& changes) {
    std::vector<FileResult> results(wanted.size());
    InParallel(wanted.size(), [&](std::size_t i) {
        const FileChange& one = wanted[i];
        auto staged = one.Bytes ? Stage(one.Path, WriteAll(*one.Bytes), {}, false) : StageRemoval(one.Path);
        if (staged)
            changes[i] = {std::move(*staged), !one.Bytes};
        else
            results[i] = tl::make_unexpected(staged.error());
    });
    const auto failed = std::find_if(results.begin(), results.end(), [](const auto& one) { return !one; });
    return failed == results.end() ? FileResult() : *failed;
}

// Some file systems have no second names; there the old file is copied.
FileResult KeepOld(Staged& file) {
    if (LookAt(file.Target).Kind == EntryKind::Missing)
        return {};
    NameOld(file);
    if (!file.Old.Text().isEmpty())
        return {};
    const DiskPath copy = UnfinishedName(file.Target);
    if (const FileResult copied = CopyWholeFile(file.Target, copy, file.Target); !copied)
        return Failure(file.Path.Text(), copied.error().Reason);
    file.Old = copy;
    return {};
}

FileResult Make(Change& change) {
    Staged& file = change.File;
    if (!change.Removes)
        return PutInPlace(file);
    if (file.Old.Text().isEmpty())
        return {}; // there is none
    const EntryResult removed = RemoveFile(file.Target);
    return removed ? FileResult() : Failure(file.Path.Text(), removed.error().Error.Reason);
}

// False if the old file could not be given its name back; it stays under its second one.
bool TakeBack(Change& change) {
    Staged& file = change.File;
    if (file.Old.Text().isEmpty())
        return change.Removes || RemoveFile(file.Target).has_value();
    const DiskPath old = std::exchange(file.Old, {});
    return RenameOver(old, file.Target).has_value();
}

FileResult TakeAllBack(std::vector<Change>& changes, std::size_t made, const FileError& error) {
    bool isWhole = true;
    while (made-- > 0)
        isWhole = TakeBack(changes[made]) && isWhole;
    if (isWhole)
        return tl::make_unexpected(error);
    return Failure(error.Path, error.Reason + QStringLiteral(" Not all files could be changed back; the old "
                                                             "ones are kept as files named %1...")
                                                  .arg(kUnfinishedPrefix));
}

FileResult MakeAll(std::vector<Change>& changes) {
    std::vector<DiskPath> written;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (const FileResult made = Make(changes[i]); !made)
            return TakeAllBack(changes, i, made.error());
        if (!changes[i].Removes)
            written.push_back(changes[i].File.Target);
    }
    // The new names are on the disk before the old files go.
    const FileResult flushed = FlushFilesToDisk(written);
    return flushed ? flushed : TakeAllBack(changes, changes.size(), flushed.error());
}

} // namespace

FileResult ChangeFiles(const std::vector<FileChange>& wanted) {
    std::vector<Change> changes(wanted.size());
    FileResult result = StageAll(wanted, changes);
    std::vector<DiskPath> files;
    for (Change& change : changes) {
        if (result)
            result = KeepOld(change.File);
        for (const DiskPath& file : {change.File.Unfinished, change.File.Old}) {
            if (!file.Text().isEmpty())
                files.push_back(file);
        }
    }
    if (result)
        result = FlushFilesToDisk(files);
    if (result)
        result = MakeAll(changes);
    std::vector<Staged> left;
    for (const Change& change : changes)
        left.push_back(change.File);
    ClearAway(left);
    return result;
}

} // namespace paneda
