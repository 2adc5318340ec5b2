#pragma once

#include <QLockFile>
#include <QString>

namespace paneda {

// Keeps other processes that ask the same out of a file while it is looked at and changed, by a hidden file
// ".<name>.lock" beside it. Waits for them up to three seconds. Where no such file can be made, or the wait
// is in vain, the work goes on unguarded: a lock must not stand between a user and a save. What a killed
// process leaves is taken over at once on its own machine, and after kGuardStale ms on another one.
class FileGuard {
public:
    explicit FileGuard(const QString& file);

private:
    QLockFile lock_;
};

inline constexpr int kGuardStale = 15'000; // ms

} // namespace paneda
