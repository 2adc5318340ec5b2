#include "platform/linux/host_target.h"

#include "core/files/file_io.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>

#include <fcntl.h>
#include <unistd.h>

namespace paneda {

namespace {

QString WithoutRegardToCase(const QString& hostPath) {
    QString found = QStringLiteral("/");
    for (const QString& part : hostPath.split(u'/', Qt::SkipEmptyParts)) {
        found = FindEntry(found, part);
        if (!QFileInfo::exists(found))
            return {};
    }
    return found;
}

// The first four bytes. Opened so that it cannot block if the file has become a pipe in the meantime.
QByteArray FirstBytes(const QString& path) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return {};
    std::array<char, 4> bytes{};
    const ssize_t count = ::read(file, bytes.data(), bytes.size());
    ::close(file);
    return {bytes.data(), std::max<qsizetype>(count, 0)};
}

} // namespace

TargetKind KindOf(const QString& hostPath) {
    const QFileInfo info(hostPath);
    if (hostPath.isEmpty() || !info.exists())
        return TargetKind::Missing;
    if (info.isDir())
        return TargetKind::Folder;
    const QString extension = info.suffix().toLower();
    if (extension == u"desktop")
        return TargetKind::DesktopFile;
    if (extension == u"url")
        return TargetKind::InternetShortcut;
    if (extension == u"lnk")
        return TargetKind::Shortcut;
    if (!info.isExecutable() || !info.isFile())
        return TargetKind::Document;
    const QByteArray begin = FirstBytes(hostPath);
    // A file that can be executed but not read is a program too.
    if (begin.isEmpty() && !info.isReadable())
        return TargetKind::Program;
    if (begin.startsWith("\x7F"
                         "ELF") ||
        begin.startsWith("#!"))
        return TargetKind::Program;
    return extension == u"sh" ? TargetKind::ShellScript : TargetKind::Document;
}

QString FindTarget(const QString& target, const LaunchPaths& paths) {
    const QString host = paths.Drives.ToHost(target, paths.AppPath);
    if (host.isEmpty() || QFileInfo::exists(host))
        return host;
    const QString found = WithoutRegardToCase(host);
    if (!found.isEmpty() || target.contains(u'\\') || target.contains(u'/'))
        return found;
    return QStandardPaths::findExecutable(target);
}

QString ExistingFolder(const QString& stored, const LaunchPaths& paths, const QString& fallback) {
    const QString host = FindTarget(stored, paths);
    return QFileInfo(host).isDir() ? host : fallback;
}

} // namespace paneda
