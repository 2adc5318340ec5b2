#include "platform/file_flush.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>

namespace paneda {

namespace {

// Up to this number files are flushed one by one, because to flush the whole file system also waits for what
// other programs write.
constexpr qsizetype kFewFiles = 16;

// Opens a file or folder and calls `flush` with its descriptor.
FileResult FlushBy(int (*flush)(int), const QString& path) {
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    const int failed = file < 0 ? errno : flush(file) != 0 ? errno : 0;
    if (file >= 0)
        close(file);
    return failed == 0 ? FileResult() : Failure(path, qt_error_string(failed));
}

FileResult FlushEach(const QStringList& files) {
    for (const QString& file : files) {
        for (const QString& path : {file, QFileInfo(file).path()}) {
            if (const FileResult flushed = FlushBy(&fsync, path); !flushed)
                return flushed;
        }
    }
    return {};
}

} // namespace

FileResult FlushFilesToDisk(const QStringList& files) {
    if (files.size() <= kFewFiles)
        return FlushEach(files);
    std::map<dev_t, QString> systems;
    for (const QString& path : files) {
        struct stat status {};
        if (stat(QFile::encodeName(path).constData(), &status) != 0)
            return Failure(path, qt_error_string(errno));
        systems.try_emplace(status.st_dev, path);
    }
    for (const auto& [device, path] : systems) {
        // The error may be that of a file which is not ours.
        if (!FlushBy(&syncfs, path))
            return FlushEach(files);
    }
    return {};
}

} // namespace paneda
