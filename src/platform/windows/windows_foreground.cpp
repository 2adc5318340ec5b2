#include "platform/windows/windows_foreground.h"

#include <windows.h>

namespace paneda {

namespace {

bool ComesToFront(HWND window) {
    SetForegroundWindow(window);
    return GetForegroundWindow() == window;
}

bool ComesAfterInput(HWND window) {
    INPUT nothing{};
    nothing.type = INPUT_MOUSE;
    return SendInput(1, &nothing, sizeof nothing) == 1 && ComesToFront(window);
}

bool ComesWithJoinedQueue(HWND window) {
    const HWND front = GetForegroundWindow();
    // A thread whose input queue is attached to one that hangs would hang too.
    if (!front || IsHungAppWindow(front))
        return false;
    const DWORD own = GetCurrentThreadId();
    const DWORD other = GetWindowThreadProcessId(front, nullptr);
    if (other == 0 || other == own || !AttachThreadInput(own, other, TRUE))
        return false;
    const bool came = ComesToFront(window);
    AttachThreadInput(own, other, FALSE);
    return came;
}

// Every program may raise a window by making it topmost for a moment.
void Raise(HWND window) {
    constexpr UINT kPlaceStays = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kPlaceStays);
    SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, kPlaceStays);
}

} // namespace

WId WindowsForeground::ActiveWindow() {
    return reinterpret_cast<WId>(GetForegroundWindow());
}

void WindowsForeground::Activate(WId window) {
    const auto handle = reinterpret_cast<HWND>(window);
    if (!IsWindow(handle))
        return;
    if (IsIconic(handle))
        ShowWindow(handle, SW_RESTORE);
    if (!ComesToFront(handle) && !ComesAfterInput(handle) && !ComesWithJoinedQueue(handle))
        Raise(handle);
}

} // namespace paneda
