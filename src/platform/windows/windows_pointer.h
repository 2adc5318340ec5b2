#pragma once

#include "platform/pointer.h"

namespace paneda {

// The mouse by the system's key states. The system remembers that the middle button was pressed since the
// last look, but not how often: two presses between the same two looks count as one.
class WindowsPointer : public Pointer {
public:
    bool CanSee() const override { return true; }
    void WatchMiddleButton(bool on) override;
    MiddleButtonLook LookAtMiddleButton() override;
    QPoint Position() override;

private:
    bool watches_ = false;
    bool wasDown_ = false; // at the last look
    quint32 lastLook_ = 0; // ms since the start of the system
};

} // namespace paneda
