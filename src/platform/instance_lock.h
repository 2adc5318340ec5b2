#pragma once

#include <QString>

namespace paneda {

// Tells whether another instance of the same executable runs for the same user.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;

    // Takes the mark of this executable until the process ends, however it ends. False if another process has
    // it. Where no mark can be made at all the answer is true: a program that starts twice beats one that
    // does not start.
    virtual bool TryLock(const QString& executablePath) = 0;
};

} // namespace paneda
