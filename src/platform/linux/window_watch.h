#pragma once

#include "core/panel/launch.h"

namespace paneda {

// Waits for the first window of a process, or of one that it started, and asks the window manager to minimize
// or maximize it. Gives up after 10 s, and at once without an X server. Blocks: call it on a thread of its
// own.
void ShowFirstWindow(qint64 processId, ShowCommand show);

// Whether a process is the other one or one of its descendants, by the kernel's process table.
bool DescendsFrom(qint64 processId, qint64 ancestor);

} // namespace paneda
