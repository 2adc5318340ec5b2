#pragma once

#include <qwindowdefs.h>

namespace paneda {

// Which window the user works in.
class Foreground {
public:
    virtual ~Foreground() = default;

    // The window that has the focus, of any program; 0 if there is none or the desktop does not say.
    virtual WId ActiveWindow() = 0;

    // Raises one of the program's own windows and gives it the focus, even while the user works elsewhere.
    // Call it after the window has been shown. Returns at once; if the window never appears, nothing happens.
    virtual void Activate(WId window) = 0;
};

} // namespace paneda
