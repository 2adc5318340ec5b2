#pragma once

#include <functional>

namespace paneda {

// Runs a function that reads and writes the disk, on any thread, and returns when it has ended. Meanwhile the
// caller's thread may paint and show that it is busy, but must not let the user change what the work is
// about.
using DiskWork = std::function<void(const std::function<void()>& work)>;

} // namespace paneda
