#pragma once

#include "platform/foreground.h"

namespace paneda {

// The foreground window. The system lets only the program change it that got the last input or that the user
// works with. A call by the middle button gives no such right, because this program gets no message of it. So
// activation tries in turn: the plain call; the call after an input without effect, which makes this the
// program with the last input; the call with the input queue of the foreground window's thread attached,
// unless that thread hangs. If all fail, the window is only raised.
class WindowsForeground : public Foreground {
public:
    WId ActiveWindow() override;
    void Activate(WId window) override;
};

} // namespace paneda
