#include "core/files/file_batch.h"
#include "core/files/file_io.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSaveFile>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <filesystem>

namespace paneda {

namespace {

namespace fs = std::filesystem;

// Disks that discard freed blocks at once take some 2 ms to remove a file, and many at a time in that time.
constexpr int kThreads = 16;

// New contents on their way to a file.
struct Staged {
    QString Path;       // of the file as the caller named it
    QString Target;     // the file behind it
    QString Unfinished; // holds the new contents; empty when there is nothing to clear away
    QString Old;        // a second name of the old file; empty when it has none
};

// The name is not made from the final one: whatever a killed process leaves must not look like one more file
// of the store, and a long name must not grow too long.
QString UnfinishedName(const QString& target) {
    return QFileInfo(target).path() + u'/' + kUnfinishedPrefix +
           QString::number(QRandomGenerator::system()->generate64(), 36);
}

fs::path NativePath(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

// The file behind a link, which need not be there.
QString BehindLink(const QFileInfo& file) {
    if (!file.isSymbolicLink())
        return file.filePath();
    return file.exists() ? file.canonicalFilePath() : file.symLinkTarget();
}

FileResult WriteAndFlush(const QString& path, const QByteArray& bytes, const QFileInfo& old) {
    QSaveFile file(path);
    // Flushed here, since the commit does not notice when a disk takes less than all of it.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        return Failure(path, file.errorString());
    // Before the commit, so that the file never is readable by more users than the old one.
    if (old.exists())
        file.setPermissions(old.permissions());
    return file.commit() ? FileResult() : Failure(path, file.errorString());
}

FileResult WriteUnflushed(const QString& path, const QByteArray& bytes, const QFileInfo& old) {
    QFile file(path);
    constexpr auto kMode = QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered;
    const bool isOpen = old.exists() ? file.open(kMode, old.permissions()) : file.open(kMode);
    if (!isOpen)
        return Failure(path, file.errorString());
    bool isWritten = file.write(bytes) == bytes.size();
    if (old.exists())
        file.setPermissions(old.permissions());
    file.close();
    isWritten = isWritten && file.error() == QFileDevice::NoError;
    const QString reason = file.errorString();
    if (!isWritten)
        QFile::remove(path);
    return isWritten ? FileResult() : Failure(path, reason);
}

tl::expected<Staged, FileError> Stage(const QString& path, const QByteArray& bytes, bool flushes) {
    const QFileInfo old(path);
    Staged staged{path, BehindLink(old), {}, {}};
    if (!staged.Target.isValidUtf16())
        return Failure(path, QStringLiteral("No file can have this name."));
    if (old.exists() && !(old.isFile() && old.isWritable()))
        return Failure(path, QStringLiteral("The file cannot be written."));
    staged.Unfinished = UnfinishedName(staged.Target);
    const FileResult written = flushes ? WriteAndFlush(staged.Unfinished, bytes, old)
                                       : WriteUnflushed(staged.Unfinished, bytes, old);
    // The temporary file's name would mean nothing to a user.
    if (!written)
        return Failure(path, written.error().Reason);
    return staged;
}

// Renames over an existing file, which Qt's rename does not.
FileResult PutInPlace(Staged& staged) {
    std::error_code error;
    fs::rename(NativePath(staged.Unfinished), NativePath(staged.Target), error);
    if (error)
        return Failure(staged.Path, QString::fromLocal8Bit(error.message().c_str()));
    staged.Unfinished.clear();
    return {};
}

// Without a second name, as on file systems that have none, the rename removes the old file.
void NameOld(Staged& staged) {
    std::error_code error;
    const QString name = UnfinishedName(staged.Target);
    fs::create_hard_link(NativePath(staged.Target), NativePath(name), error);
    if (!error)
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
        for (const QString& file : {staged[i].Unfinished, staged[i].Old}) {
            // What stays is hidden and harmless.
            if (!file.isEmpty())
                QFile::remove(file);
        }
    });
}

FileResult StageAll(const QStringList& paths, const BytesOfFile& bytesOf, bool flushes,
                    std::vector<Staged>& staged) {
    std::vector<FileResult> results(staged.size());
    InParallel(staged.size(), [&](std::size_t i) {
        const QString& path = paths[qsizetype(i)];
        const auto bytes = bytesOf(i);
        auto one = bytes ? Stage(path, *bytes, flushes) : tl::make_unexpected(bytes.error());
        if (one)
            staged[i] = std::move(*one);
        else
            results[i] = tl::make_unexpected(one.error());
    });
    const auto failed = std::find_if(results.begin(), results.end(), [](const auto& one) { return !one; });
    return failed == results.end() ? FileResult() : *failed;
}

FileResult PutAllInPlace(std::vector<Staged>& staged, const FlushFiles& flush) {
    QStringList targets;
    for (Staged& one : staged) {
        NameOld(one);
        if (const FileResult placed = PutInPlace(one); !placed)
            return placed;
        targets.append(one.Target);
    }
    // The new names are on the disk before the old files go.
    return flush ? flush(targets) : FileResult();
}

} // namespace

FileResult ReplaceFile(const QString& path, const QByteArray& bytes) {
    auto staged = Stage(path, bytes, true);
    if (!staged)
        return tl::make_unexpected(staged.error());
    const FileResult placed = PutInPlace(*staged);
    if (!placed)
        QFile::remove(staged->Unfinished);
    return placed;
}

FileResult ReplaceFiles(const QStringList& paths, const BytesOfFile& bytesOf, const FlushFiles& flush) {
    std::vector<Staged> staged(std::size_t(paths.size()));
    FileResult result = StageAll(paths, bytesOf, !flush, staged);
    if (result && flush) {
        QStringList files;
        for (const Staged& one : staged)
            files.append(one.Unfinished);
        result = flush(files);
    }
    if (result)
        result = PutAllInPlace(staged, flush);
    ClearAway(staged);
    return result;
}

} // namespace paneda
