#pragma once

#include "core/panel/mouse_trigger.h"

#include <QPoint>

namespace paneda {

// The mouse, also outside of the program's windows.
class Pointer {
public:
    virtual ~Pointer() = default;

    // Whether the desktop reports the mouse outside of the program's own windows.
    virtual bool CanSee() const = 0;

    // Starts and stops counting presses of the middle button. While it is stopped, and between two looks,
    // nothing wakes the program.
    virtual void WatchMiddleButton(bool on) = 0;

    // The button now, and its presses since the last call, wherever on the desktop they happened. Empty while
    // the button is not watched and where CanSee() is false.
    virtual MiddleButtonLook LookAtMiddleButton() = 0;

    // In the coordinates of windows. Where the system does not tell: where Qt saw the pointer last.
    virtual QPoint Position() = 0;
};

} // namespace paneda
