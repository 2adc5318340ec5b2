#pragma once

#include <windows.h>

namespace paneda {

// No box of the system asks for a medium while this thread looks at a drive that has none.
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
