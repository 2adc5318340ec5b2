#include "core/files/file_guard.h"

#include <QFileInfo>

namespace paneda {

namespace {

constexpr int kLongestWait = 3000; // ms

QString LockNameOf(const QString& file) {
    const QFileInfo info(file);
    return info.path() + QStringLiteral("/.") + info.fileName() + QStringLiteral(".lock");
}

} // namespace

FileGuard::FileGuard(const QString& file) : lock_(LockNameOf(file)) {
    lock_.setStaleLockTime(kGuardStale);
    // Ignored: see the header.
    (void)lock_.tryLock(kLongestWait);
}

} // namespace paneda
