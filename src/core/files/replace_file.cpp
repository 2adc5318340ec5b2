#include "core/files/file_io.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSaveFile>

#include <filesystem>

namespace paneda {

namespace {

QString UnfinishedName() {
    return kUnfinishedPrefix + QString::number(QRandomGenerator::system()->generate64(), 36);
}

// Renames over an existing file, which Qt's rename does not.
std::error_code RenameOver(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), error);
    return error;
}

// The file behind a link, which need not be there.
QString BehindLink(const QFileInfo& file) {
    if (!file.isSymbolicLink())
        return file.filePath();
    return file.exists() ? file.canonicalFilePath() : file.symLinkTarget();
}

} // namespace

// The file that is written has a name of its own, and not one made from the final name: whatever a killed
// process leaves must not look like one more file of the store, and a long name must not grow too long.
FileResult ReplaceFile(const QString& path, const QByteArray& bytes) {
    const QFileInfo old(path);
    const QString target = BehindLink(old);
    if (!target.isValidUtf16())
        return Failure(path, QStringLiteral("No file can have this name."));
    if (old.exists() && !(old.isFile() && old.isWritable()))
        return Failure(path, QStringLiteral("The file may not be written."));
    QSaveFile file(QFileInfo(target).dir().filePath(UnfinishedName()));
    // Flushed here, since the commit does not notice when a disk takes less than all of it.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        return Failure(path, file.errorString());
    // Before the commit, so that the file never is readable by more users than the old one.
    if (old.exists())
        file.setPermissions(old.permissions());
    if (!file.commit())
        return Failure(path, file.errorString());
    if (const std::error_code error = RenameOver(file.fileName(), target)) {
        QFile::remove(file.fileName());
        return Failure(path, QString::fromLocal8Bit(error.message().c_str()));
    }
    return {};
}

} // namespace paneda
