#include "core/disk/disk_file.h"
#include "core/files/file_batch.h"
#include "core/files/file_io.h"

#include <QRandomGenerator>
#include <QThreadPool>

#include <algorithm>
#include <atomic>

namespace paneda {

namespace {

// Disks that discard freed blocks at once take some 2 ms to remove a file, and many at a time in that time.
constexpr int kThreads = 16;

// New contents on their way to a file.
struct Staged {
    DiskPath Path;       // of the file as the caller named it
    DiskPath Target;     // the file behind it
    DiskPath Unfinished; // holds the new contents; empty when there is nothing to clear away
    DiskPath Old;        // a second name of the old file; empty when it has none
};

// The name is not made from the final one: whatever a killed process leaves must not look like one more file
// of the store, and a long name must not grow too long.
DiskPath UnfinishedName(const DiskPath& target) {
    return target.Parent() /
           (kUnfinishedPrefix + QString::number(QRandomGenerator::system()->generate64(), 36));
}

FileWriter WriteAll(const QByteArray& bytes) {
    return [bytes](DiskFile& file) { return file.Write(bytes); };
}

EntryResult WriteWhole(const DiskPath& path, const FileWriter& write, const DiskPath* like, bool flushes) {
    auto file = DiskFile::Create(path, like);
    if (!file)
        return tl::make_unexpected(file.error());
    EntryResult result = write(*file);
    if (result && flushes)
        result = file->Flush();
    const EntryResult closed = file->Close();
    if (result)
        result = closed;
    // What stays is hidden and harmless.
    if (!result)
        (void)RemoveFile(path);
    return result;
}

// A new file is made like `like`, if that is a file.
tl::expected<Staged, FileError> Stage(const DiskPath& path, const FileWriter& write, const DiskPath& like,
                                      bool flushes) {
    const QString behind = LinkTarget(path);
    Staged staged{path, behind.isEmpty() ? path : DiskPath(behind), {}, {}};
    const EntryState old = LookAt(staged.Target);
    const bool isThere = old.Kind != EntryKind::Missing;
    const bool canBeReplaced = old.Kind == EntryKind::File && old.Writable;
    if (old.Kind == EntryKind::Link)
        return Failure(path.Text(), QStringLiteral("This is a link."));
    if (isThere && !canBeReplaced && old.Kind != EntryKind::Unknown)
        return Failure(path.Text(), QStringLiteral("The file cannot be written."));
    staged.Unfinished = UnfinishedName(staged.Target);
    const bool isLike = !isThere && !like.Text().isEmpty() && LookAt(like).Kind == EntryKind::File;
    const DiskPath* model = isThere ? &staged.Target : isLike ? &like : nullptr;
    const EntryResult written = WriteWhole(staged.Unfinished, write, model, flushes);
    if (written)
        return staged;
    // The temporary file's name would mean nothing to a user; that of a folder on the way does.
    const FileError& error = written.error().Error;
    const bool isOwn = error.Path == Failure(staged.Unfinished.Text(), {}).value().Path;
    return isOwn ? Failure(path.Text(), error.Reason) : tl::make_unexpected(error);
}

FileResult PutInPlace(Staged& staged) {
    if (const EntryResult renamed = RenameOver(staged.Unfinished, staged.Target); !renamed)
        return Failure(staged.Path.Text(), renamed.error().Error.Reason);
    staged.Unfinished = {};
    return {};
}

// Without a second name, as on file systems that have none, the rename removes the old file.
void NameOld(Staged& staged) {
    const DiskPath name = UnfinishedName(staged.Target);
    if (NameTwice(staged.Target, name))
        staged.Old = name;
}

void InParallel(std::size_t count, const std::function<void(std::size_t)>& work) {
    std::atomic<std::size_t> next = 0;
    QThreadPool pool;
    pool.setMaxThreadCount(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        pool.start([&] {
            for (std::size_t at = next++; at < count; at = next++)
                work(at);
        });
    }
    pool.waitForDone();
}

void ClearAway(const std::vector<Staged>& staged) {
    InParallel(staged.size(), [&](std::size_t i) {
        for (const DiskPath& file : {staged[i].Unfinished, staged[i].Old}) {
            // What stays is hidden and harmless.
            if (!file.Text().isEmpty())
                (void)RemoveFile(file);
        }
    });
}

FileResult StageAll(const std::vector<DiskPath>& paths, const BytesOfFile& bytesOf,
                    std::vector<Staged>& staged) {
    std::vector<FileResult> results(staged.size());
    InParallel(staged.size(), [&](std::size_t i) {
        const auto bytes = bytesOf(i);
        auto one = bytes ? Stage(paths[i], WriteAll(*bytes), {}, false) : tl::make_unexpected(bytes.error());
        if (one)
            staged[i] = std::move(*one);
        else
            results[i] = tl::make_unexpected(one.error());
    });
    const auto failed = std::find_if(results.begin(), results.end(), [](const auto& one) { return !one; });
    return failed == results.end() ? FileResult() : *failed;
}

FileResult PutAllInPlace(std::vector<Staged>& staged) {
    std::vector<DiskPath> targets;
    for (Staged& one : staged) {
        NameOld(one);
        if (const FileResult placed = PutInPlace(one); !placed)
            return placed;
        targets.push_back(one.Target);
    }
    // The new names are on the disk before the old files go.
    return FlushFilesToDisk(targets);
}

} // namespace

FileResult ReplaceFile(const DiskPath& path, const QByteArray& bytes) {
    return ReplaceFileBy(path, WriteAll(bytes), {});
}

FileResult ReplaceFileLike(const DiskPath& path, const QByteArray& bytes, const DiskPath& like) {
    return ReplaceFileBy(path, WriteAll(bytes), like);
}

FileResult ReplaceFileBy(const DiskPath& path, const FileWriter& write, const DiskPath& like) {
    auto staged = Stage(path, write, like, true);
    if (!staged)
        return tl::make_unexpected(staged.error());
    const FileResult placed = PutInPlace(*staged);
    if (!placed)
        (void)RemoveFile(staged->Unfinished);
    return placed;
}

FileResult ReplaceFiles(const std::vector<DiskPath>& paths, const BytesOfFile& bytesOf) {
    std::vector<Staged> staged(paths.size());
    FileResult result = StageAll(paths, bytesOf, staged);
    if (result) {
        std::vector<DiskPath> files;
        for (const Staged& one : staged)
            files.push_back(one.Unfinished);
        result = FlushFilesToDisk(files);
    }
    if (result)
        result = PutAllInPlace(staged);
    ClearAway(staged);
    return result;
}

} // namespace paneda
