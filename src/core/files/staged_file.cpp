#include "core/files/staged_file.h"

#include "core/disk/disk_file.h"

#include <QRandomGenerator>
#include <QThreadPool>

#include <atomic>

namespace paneda {

namespace {

// Disks that discard freed blocks at once take some 2 ms to remove a file, and many at a time in that time.
constexpr int kThreads = 16;

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

} // namespace

DiskPath UnfinishedName(const DiskPath& target) {
    return target.Parent() /
           (kUnfinishedPrefix + QString::number(QRandomGenerator::system()->generate64(), 36));
}

FileWriter WriteAll(const QByteArray& bytes) {
    return [bytes](DiskFile& file) { return file.Write(bytes); };
}

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

} // namespace paneda
