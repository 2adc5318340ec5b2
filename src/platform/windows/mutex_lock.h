#pragma once

#include "platform/instance_lock.h"

namespace paneda {

// A named mutex of the user's session, named after the executable. The system deletes it when the last
// process that has it open ends, so that a crash leaves no stale mark.
class MutexLock : public InstanceLock {
public:
    MutexLock() = default;
    ~MutexLock() override;
    Q_DISABLE_COPY_MOVE(MutexLock)

    bool TryLock(const QString& executablePath) override;
    void Release() override;

private:
    void* mutex_ = nullptr; // handle
};

} // namespace paneda
