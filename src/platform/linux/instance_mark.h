#pragma once

#include "platform/instance_lock.h"

namespace paneda {

// A locked file in the user's run-time folder, named after the executable. The kernel releases the lock when
// the process ends, so that a crash leaves no stale mark.
class InstanceMark : public InstanceLock {
public:
    InstanceMark() = default;
    ~InstanceMark() override;
    Q_DISABLE_COPY_MOVE(InstanceMark)

    bool TryLock(const QString& executablePath) override;
    void Release() override;

private:
    int file_ = -1;
};

} // namespace paneda
