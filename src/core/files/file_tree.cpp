#include "core/files/file_tree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include <filesystem>
#include <system_error>
#include <vector>

namespace paneda {

namespace {

namespace fs = std::filesystem;

constexpr qint64 kChunk = 1024 * 1024;

fs::path NativePath(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

FileError ErrorAt(const fs::path& path, const QString& reason) {
    return {QDir::toNativeSeparators(QFileInfo(path).filePath()), reason};
}

FileError ErrorAt(const fs::path& path, const std::error_code& error) {
    return ErrorAt(path, QString::fromLocal8Bit(error.message().c_str()));
}

// Some systems know links that the standard library takes for folders.
bool IsLink(const fs::path& path) {
    std::error_code ignored;
    const QFileInfo info(path);
    return fs::is_symlink(path, ignored) || info.isSymbolicLink() || info.isJunction();
}

EntryProblem ProblemOf(const std::error_code& error) {
    if (error == std::errc::file_exists || error == std::errc::directory_not_empty)
        return EntryProblem::AlreadyThere;
    if (error == std::errc::cross_device_link)
        return EntryProblem::OtherVolume;
    return error == std::errc::no_such_file_or_directory ? EntryProblem::Missing : EntryProblem::Other;
}

tl::unexpected<EntryError> Failed(const fs::path& path, const std::error_code& error) {
    return tl::make_unexpected(EntryError{ProblemOf(error), ErrorAt(path, error)});
}

tl::unexpected<EntryError> Taken(const fs::path& path) {
    return tl::make_unexpected(EntryError{EntryProblem::AlreadyThere,
                                          ErrorAt(path, QStringLiteral("There is an entry of this name."))});
}

// Where letters' case does not tell names apart, one entry answers to both.
bool IsOtherSpelling(const fs::path& path, const fs::path& other) {
    std::error_code ignored;
    return QFileInfo(path).filePath().compare(QFileInfo(other).filePath(), Qt::CaseInsensitive) == 0 &&
           fs::equivalent(path, other, ignored);
}

// Not every system says it by the error alone.
EntryProblem RenameProblem(const std::error_code& error, const QString& from, const QString& to) {
    const QFileInfo goal(QFileInfo(to).path());
    if (!EntryExists(from) || !goal.isDir())
        return EntryProblem::Missing;
    const bool isElsewhere = QStorageInfo(QFileInfo(from).path()) != QStorageInfo(goal.filePath());
    return isElsewhere ? EntryProblem::OtherVolume : ProblemOf(error);
}

EntryResult RemoveSource(const fs::path& path) {
    std::error_code error;
    fs::remove(path, error);
    return error ? Failed(path, error) : EntryResult();
}

std::vector<fs::path> EntriesOf(const fs::path& folder, std::error_code& error) {
    std::vector<fs::path> entries;
    fs::directory_iterator it(folder, error);
    for (; !error && it != fs::directory_iterator(); it.increment(error))
        entries.push_back(it->path());
    return entries;
}

void RemoveOne(const fs::path& path, FileResult& first) {
    std::error_code error;
    fs::remove(path, error);
    if (std::error_code ignored; error && !IsLink(path) && fs::is_regular_file(path, ignored)) {
        // A system that refuses to remove read-only files.
        fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ignored);
        fs::remove(path, error);
    }
    if (error && first)
        first = tl::make_unexpected(ErrorAt(path, error));
}

void RemoveAll(const fs::path& path, FileResult& first) {
    std::error_code error;
    if (!IsLink(path) && fs::is_directory(path, error)) {
        for (const fs::path& entry : EntriesOf(path, error))
            RemoveAll(entry, first);
        if (error && first)
            first = tl::make_unexpected(ErrorAt(path, error));
    }
    RemoveOne(path, first);
}

FileResult CopyLink(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::copy_symlink(from, to, error);
    return error ? FileResult(tl::make_unexpected(ErrorAt(from, error))) : FileResult();
}

FileResult CopyAll(const fs::path& from, const fs::path& to) {
    if (IsLink(from))
        return CopyLink(from, to);
    // A name that the text of a path cannot hold would be lost with its folder.
    if (!EntryExists(QFileInfo(from).filePath()))
        return tl::make_unexpected(
            ErrorAt(from, QStringLiteral("The file does not exist, or its name cannot be read.")));
    std::error_code error;
    if (!fs::is_directory(from, error))
        return CopyWholeFile(QFileInfo(from).filePath(), QFileInfo(to).filePath());
    if (!fs::create_directory(to, error))
        return tl::make_unexpected(error ? ErrorAt(to, error) : Taken(to).value().Error);
    for (const fs::path& entry : EntriesOf(from, error)) {
        if (const FileResult copied = CopyAll(entry, to / entry.filename()); !copied)
            return copied;
    }
    return error ? FileResult(tl::make_unexpected(ErrorAt(from, error))) : FileResult();
}

} // namespace

EntryResult MakeNewFolder(const QString& path) {
    std::error_code error;
    const fs::path native = NativePath(path);
    if (fs::create_directory(native, error))
        return {};
    if (EntryExists(path))
        return Taken(native);
    return Failed(native, error);
}

EntryResult RenameEntry(const QString& from, const QString& to) {
    const fs::path source = NativePath(from);
    const fs::path target = NativePath(to);
    if (EntryExists(to) && !IsOtherSpelling(source, target))
        return Taken(target);
    std::error_code error;
    if (!IsLink(source) && fs::is_directory(source, error)) {
        // Refuses a folder that has appeared in the meantime, but does not tell why it fails.
        if (QDir().rename(from, to))
            return {};
        if (EntryExists(to) && !IsOtherSpelling(source, target))
            return Taken(target);
    } else if (!IsLink(source) && !EntryExists(to)) {
        // The same for a file, where the file system has hard links.
        fs::create_hard_link(source, target, error);
        if (!error)
            return RemoveSource(source);
        if (error == std::errc::file_exists)
            return Taken(target);
    }
    fs::rename(source, target, error);
    if (!error)
        return {};
    return tl::make_unexpected(EntryError{RenameProblem(error, from, to), ErrorAt(source, error)});
}

bool EntryExists(const QString& path) {
    // Qt looks through links and shortcuts, which may lead nowhere.
    std::error_code ignored;
    return fs::symlink_status(NativePath(path), ignored).type() != fs::file_type::not_found;
}

FileResult CopyWholeFile(const QString& from, const QString& to) {
    QFile source(from);
    QSaveFile target(to);
    if (!QFileInfo(from).isFile() && !QFileInfo(from).isShortcut())
        return Failure(from, QStringLiteral("This is not a file."));
    if (!source.open(QIODevice::ReadOnly))
        return Failure(from, source.errorString());
    if (!target.open(QIODevice::WriteOnly))
        return Failure(to, target.errorString());
    for (QByteArray bytes = source.read(kChunk); !bytes.isEmpty(); bytes = source.read(kChunk)) {
        if (target.write(bytes) != bytes.size())
            return Failure(to, target.errorString());
    }
    if (source.error() != QFileDevice::NoError)
        return Failure(from, source.errorString());
    // The commit does not notice what its own flush could not write, as on a full disk.
    if (!target.flush() || !target.commit())
        return Failure(to, target.errorString());
    return {};
}

FileResult CopyTree(const QString& from, const QString& to) {
    return CopyAll(NativePath(from), NativePath(to));
}

FileResult RemoveTree(const QString& path) {
    FileResult first;
    RemoveAll(NativePath(path), first);
    return first;
}

} // namespace paneda
