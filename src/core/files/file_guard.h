#pragma once

#include <QLockFile>
#include <QString>

namespace paneda {

// While it exists, other processes that create one for the same file wait. Used while a file is read, changed
// and written back. Made of a hidden file ".<name>.lock" beside the file. Waits for others up to three
// seconds. If the lock file cannot be made, or the wait was too short, the guard does nothing: a lock must
// not keep a user from saving. The lock of a killed process is ignored at once on its own machine, and after
// kGuardStale ms on any other.
class FileGuard {
public:
    explicit FileGuard(const QString& file);

private:
    QLockFile lock_;
};

inline constexpr int kGuardStale = 15'000; // ms

} // namespace paneda
