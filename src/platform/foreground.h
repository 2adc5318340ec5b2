#pragma once

#include <qwindowdefs.h>

namespace paneda {

// Which window has the user's attention.
class Foreground {
public:
    virtual ~Foreground() = default;

    // The window that has the focus, of whatever program; 0 for none, or when the desktop does not tell.
    virtual WId ActiveWindow() = 0;

    // Raises one of the program's own windows and gives it the focus, even while the user works elsewhere.
    // Call it after the window has been shown. Returns at once; a window that does not appear is forgotten.
    virtual void Activate(WId window) = 0;
};

} // namespace paneda
