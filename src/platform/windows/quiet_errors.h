#pragma once

#include <windows.h>

namespace paneda {

// While the object lives, the system shows no box that asks for a medium when this thread accesses an empty
// drive.
class QuietErrors {
public:
    QuietErrors() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &former_); }
    ~QuietErrors() { SetThreadErrorMode(former_, nullptr); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    DWORD former_ = 0;
};

} // namespace paneda
