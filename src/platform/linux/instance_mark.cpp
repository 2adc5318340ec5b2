#include "platform/linux/instance_mark.h"

#include "platform/instance_id.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace paneda {

namespace {

QString MarkPath(const QString& executablePath) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return QDir(folder.isEmpty() ? QDir::tempPath() : folder)
        .filePath(QStringLiteral("paneda-%1.lock").arg(InstanceId(executablePath)));
}

} // namespace

InstanceMark::~InstanceMark() {
    Release();
}

void InstanceMark::Release() {
    if (file_ < 0)
        return;
    // A child that a dead network place holds up before it has become another program has the file open too,
    // so that closing it here would not end the lock.
    ::flock(file_, LOCK_UN);
    ::close(std::exchange(file_, -1));
}

bool InstanceMark::TryLock(const QString& executablePath) {
    const QByteArray path = QFile::encodeName(MarkPath(executablePath));
    // Not inherited: a launched program that outlives the panel must not hold its mark.
    file_ = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file_ < 0)
        return true;
    return ::flock(file_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

} // namespace paneda
