#pragma once

namespace paneda {

// Ends this process at once with an exit status, whatever its threads do. Destructors of static objects and
// functions registered for the end do not run: a thread that waits in the kernel for a dead network place can
// be neither ended nor waited for, and might come back while they run and use what they have destroyed. So
// everything to keep has to be on the disk, and what other processes are to be given (a clipboard, a tray
// icon) has to be handed over.
[[noreturn]] void EndProcess(int status);

// Calls EndProcess(0) after so many milliseconds, unless the process has ended before. Returns at once.
void EndProcessWithin(int milliseconds);

} // namespace paneda
