#include "platform/windows/mutex_lock.h"

#include "platform/instance_id.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace paneda {

namespace {

QString MutexName(const QString& executablePath) {
    return QStringLiteral("Local\\paneda-") + InstanceId(executablePath);
}

} // namespace

MutexLock::~MutexLock() {
    Release();
}

bool MutexLock::TryLock(const QString& executablePath) {
    Release();
    mutex_ = CreateMutexW(nullptr, FALSE, Wide(MutexName(executablePath)));
    const DWORD error = GetLastError();
    if (!mutex_)
        // The mutex of an instance that runs with more rights may not be opened.
        return error != ERROR_ACCESS_DENIED;
    if (error != ERROR_ALREADY_EXISTS)
        return true;
    Release();
    return false;
}

void MutexLock::Release() {
    if (mutex_)
        CloseHandle(mutex_);
    mutex_ = nullptr;
}

} // namespace paneda
