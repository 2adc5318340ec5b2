#pragma once

#include "platform/foreground.h"

namespace paneda {

// The foreground window. The system lets only that program change it which had the last input, or which the
// user works with; a call by the middle button, of which this program gets no message, gives no such right.
// So activation tries in turn: the plain call; the same after an input without effect, which makes this
// program the one with the last input; the same with the input queue of the foreground window's thread joined
// to its own, unless that hangs. If all fails, the window is at least raised.
class WindowsForeground : public Foreground {
public:
    WId ActiveWindow() override;
    void Activate(WId window) override;
};

} // namespace paneda
