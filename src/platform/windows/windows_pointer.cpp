#include "platform/windows/windows_pointer.h"

#include <QCursor>

#include <utility>

#include <windows.h>

namespace paneda {

namespace {

// Bits of GetAsyncKeyState.
constexpr quint16 kIsDown = 0x8000;
constexpr quint16 kPressedSinceLastLook = 1;

} // namespace

void WindowsPointer::WatchMiddleButton(bool on) {
    const bool begins = on && !watches_;
    watches_ = on;
    // A press from before the watch does not count.
    if (begins)
        LookAtMiddleButton();
}

MiddleButtonLook WindowsPointer::LookAtMiddleButton() {
    if (!watches_)
        return {};
    const auto state = quint16(GetAsyncKeyState(VK_MBUTTON));
    const quint32 now = GetTickCount();
    MiddleButtonLook look;
    look.IsDown = (state & kIsDown) != 0;
    // Another program that asks for the button may have taken the bit for the press.
    if ((state & kPressedSinceLastLook) || (look.IsDown && !wasDown_))
        look.Presses.push_back(now);
    wasDown_ = look.IsDown;
    look.Uncertainty = now - std::exchange(lastLook_, now);
    return look;
}

QPoint WindowsPointer::Position() {
    // Qt asks the system at each call and converts the place to the coordinates of windows.
    return QCursor::pos();
}

} // namespace paneda
