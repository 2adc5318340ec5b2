#include "platform/windows/mutex_lock.h"

#include "platform/windows/wide_text.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <windows.h>

namespace paneda {

namespace {

QString MutexName(const QString& executablePath) {
    const QFileInfo info(executablePath);
    const QString path =
        info.canonicalFilePath().isEmpty() ? info.absoluteFilePath() : info.canonicalFilePath();
    const QByteArray hash =
        QCryptographicHash::hash(path.toLower().toUtf8(), QCryptographicHash::Sha256).toHex().first(16);
    return QStringLiteral("Local\\paneda-%1").arg(QLatin1StringView(hash));
}

} // namespace

MutexLock::~MutexLock() {
    Drop();
}

bool MutexLock::TryLock(const QString& executablePath) {
    Drop();
    mutex_ = CreateMutexW(nullptr, FALSE, Wide(MutexName(executablePath)));
    const DWORD error = GetLastError();
    if (!mutex_)
        // An instance that runs with more rights does not let its mutex be opened.
        return error != ERROR_ACCESS_DENIED;
    if (error != ERROR_ALREADY_EXISTS)
        return true;
    Drop();
    return false;
}

void MutexLock::Drop() {
    if (mutex_)
        CloseHandle(mutex_);
    mutex_ = nullptr;
}

} // namespace paneda
