#include "core/files/file_io.h"

#include "core/text/text_rules.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace paneda {

namespace {

// A shortcut of the desktop is a file like any other, whatever it leads to and even if that is gone. Qt looks
// through it.
bool IsFile(const QFileInfo& entry) {
    return entry.isFile() || entry.isShortcut();
}

bool IsFolder(const QFileInfo& entry) {
    return entry.isDir() && !entry.isShortcut();
}

bool IsAnything(const QFileInfo&) {
    return true;
}

QStringList ListNames(const QString& folder, bool (*isWanted)(const QFileInfo&), QDir::Filters more = {}) {
    QStringList names;
    // Without System the shortcuts to nowhere are left out.
    QDirIterator entries(folder, QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot | more);
    while (entries.hasNext()) {
        entries.next();
        const QString name = entries.fileName();
        if (!name.contains(u'\\') && !name.startsWith(kUnfinishedPrefix) && isWanted(entries.fileInfo()))
            names.append(name);
    }
    std::sort(names.begin(), names.end(),
              [](const QString& a, const QString& b) { return CompareText(a, b) < 0; });
    return names;
}

} // namespace

tl::unexpected<FileError> Failure(const QString& path, const QString& reason) {
    return tl::make_unexpected(FileError{QDir::toNativeSeparators(path), reason});
}

QString FileError::Text() const {
    return Path + QStringLiteral(": ") + Reason;
}

QString FailureText(const std::vector<FileError>& failures) {
    QStringList lines;
    for (const FileError& failure : failures)
        lines.append(failure.Text());
    return lines.join(u'\n');
}

QString FindEntry(const QString& folder, const QString& name) {
    const QString exact = QDir(folder).filePath(name);
    if (QFileInfo::exists(exact))
        return exact;
    const QStringList names = ListNames(folder, IsAnything, QDir::Hidden);
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&name](const QString& entry) { return SameName(entry, name); });
    return found == names.end() ? exact : QDir(folder).filePath(*found);
}

tl::expected<QByteArray, FileError> ReadFileBytes(const QString& path, qint64 limit) {
    const QFileInfo info(path);
    if (!info.exists() && !info.isShortcut())
        return Failure(path, QStringLiteral("The file does not exist."));
    if (!IsFile(info))
        return Failure(path, QStringLiteral("This is not a file."));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure(path, file.errorString());
    if (file.size() > limit)
        return Failure(path, QStringLiteral("The file is larger than %1 bytes.").arg(limit));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return Failure(path, file.errorString());
    return bytes;
}

FileResult MakeFolder(const QString& path) {
    if (QFileInfo(path).isDir() || QDir().mkdir(path))
        return {};
    return Failure(path, QStringLiteral("The folder cannot be created."));
}

QStringList ListFolders(const QString& folder) {
    return ListNames(folder, IsFolder);
}

QStringList ListFiles(const QString& folder) {
    return ListNames(folder, IsFile);
}

} // namespace paneda
