#pragma once

#include "core/files/disk_work.h"

class QWidget;

namespace paneda {

// Work for a window: it runs on a thread of its own while the event loop paints, and after 300 ms the wait
// window is shown. What the user types and clicks during short work comes behind it; what is typed and
// clicked at the wait window is dropped. Returns when the work is done, also when the program is ending.
DiskWork WorkShownBy(QWidget& window);

} // namespace paneda
