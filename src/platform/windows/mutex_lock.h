#pragma once

#include "platform/instance_lock.h"

namespace paneda {

// A named mutex of the user's session, called after the executable's path in small letters. The system drops
// it with the last process that has it open, so that a crash leaves no stale mark.
class MutexLock : public InstanceLock {
public:
    MutexLock() = default;
    ~MutexLock() override;
    Q_DISABLE_COPY_MOVE(MutexLock)

    bool TryLock(const QString& executablePath) override;

private:
    void Drop();

    void* mutex_ = nullptr; // handle
};

} // namespace paneda
