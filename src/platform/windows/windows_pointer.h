#pragma once

#include "platform/pointer.h"

namespace paneda {

// The mouse by asking the system for the state of its middle button.
class WindowsPointer : public Pointer {
public:
    bool CanSee() const override { return true; }
    void WatchMiddleButton(bool on) override;
    bool MiddleButtonDown() override;
    QPoint Position() override;

private:
    bool watches_ = false;
};

} // namespace paneda
