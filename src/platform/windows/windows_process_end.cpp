#include "platform/process_end.h"

#include <windows.h>

#include <cstdlib>

namespace paneda {

void EndProcess(int status) {
    // Not ExitProcess, which waits for the loader's lock: the shell may hold it while it loads an extension
    // from a place that does not answer.
    TerminateProcess(GetCurrentProcess(), UINT(status));
    std::abort(); // not reached; the compiler cannot know that
}

} // namespace paneda
