#include "platform/windows/windows_pointer.h"

#include <QCursor>

#include <windows.h>

namespace paneda {

void WindowsPointer::WatchMiddleButton(bool on) {
    // A press from before the watch is forgotten with this look.
    if (on && !watches_)
        GetAsyncKeyState(VK_MBUTTON);
    watches_ = on;
}

bool WindowsPointer::MiddleButtonDown() {
    // The highest bit tells that it is down, the lowest one that it has been pressed since the last look.
    return watches_ && GetAsyncKeyState(VK_MBUTTON) != 0;
}

QPoint WindowsPointer::Position() {
    // Asks the system at once, and turns the place into the units in which windows and screens are measured.
    return QCursor::pos();
}

} // namespace paneda
