#pragma once

#include <QString>

namespace paneda {

// Tells whether another instance of the same executable runs for the same user.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;

    // Takes the lock of this executable and keeps it until Release or the end of the process. False if
    // another process has it. If the lock cannot be made at all, the answer is true: to start twice is better
    // than not to start.
    virtual bool TryLock(const QString& executablePath) = 0;

    // Lets the next instance start. Does nothing without a lock.
    virtual void Release() = 0;
};

} // namespace paneda
