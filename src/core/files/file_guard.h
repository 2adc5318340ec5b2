#pragma once

#include "core/disk/disk_path.h"

#include <QByteArray>

#include <chrono>
#include <memory>

namespace paneda {

// How long guards wait, and how often a holder shows that it is alive.
struct GuardTimes {
    std::chrono::milliseconds Beat{1000};
    // A lock that has not changed for this time is left over: five beats, so that one that is late does not
    // count. Nobody waits longer than that.
    std::chrono::milliseconds Longest{5000};
};

// The time that one operation may wait for all its guards together.
class GuardWait {
public:
    explicit GuardWait(const GuardTimes& times = {}) : Times(times) {}

    const GuardTimes Times;

private:
    friend class FileGuard;
    std::chrono::milliseconds used_{0};
};

// While it exists, other processes that create one for the same file wait. Used while a file is read, changed
// and written back. Made of a hidden file ".<name>.lock" beside the file, in which the holder writes every
// second. Clocks are not compared, since those of two hosts differ: whether a holder is alive shows in
// the lock's change, as seen from here.
//
// Blocks until the other one is ready, at most GuardTimes::Longest; not for a window's thread. The lock of a
// dead process of this machine is taken over at once, that of a running one never, and that of another
// machine when it has not changed in that time. If the
// lock file cannot be made, or its holder is still alive after the wait, the guard does nothing: a lock must
// not keep a user from saving.
class FileGuard {
public:
    explicit FileGuard(const DiskPath& file, GuardWait&& wait = GuardWait());
    FileGuard(const DiskPath& file, GuardWait& wait);
    ~FileGuard();
    FileGuard(const FileGuard&) = delete;
    FileGuard& operator=(const FileGuard&) = delete;

    bool IsHeld() const { return held_ != nullptr; }

private:
    struct Held;

    void Take(GuardWait& wait);
    bool TryLock(const GuardTimes& times);
    bool TakeAway(const QByteArray& seen);

    DiskPath lock_;
    std::unique_ptr<Held> held_;
};

} // namespace paneda
