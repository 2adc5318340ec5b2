#pragma once

#include <QPoint>

namespace paneda {

// The mouse, wherever on the desktop it is.
class Pointer {
public:
    virtual ~Pointer() = default;

    // Whether the mouse is known outside of the program's own windows.
    virtual bool CanSee() const = 0;

    // Begins and ends taking note of the middle button. Costs nothing while it is off.
    virtual void WatchMiddleButton(bool on) = 0;

    // Whether the middle button is down or has been pressed since the last call, so that a click shorter than
    // the time between two looks is not missed. False when it cannot be known or is not watched.
    virtual bool MiddleButtonDown() = 0;

    // In the coordinates of windows. Where it cannot be known: where Qt saw it last.
    virtual QPoint Position() = 0;
};

} // namespace paneda
