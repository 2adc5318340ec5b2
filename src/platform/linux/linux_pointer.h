#pragma once

#include "platform/linux/x11_connection.h"
#include "platform/pointer.h"

#include <memory>

namespace paneda {

// The mouse by what the X server says. Presses and releases come as raw events of the input extension, which
// reach this program whatever window they are for, and cost nothing while the button rests; without the
// extension only the state at the look counts.
class LinuxPointer : public Pointer {
public:
    bool CanSee() const override;
    void WatchMiddleButton(bool on) override;
    bool MiddleButtonDown() override;
    QPoint Position() override;

private:
    X11Connection& Server();
    void SelectPresses();
    bool TakePresses();
    bool IsDownNow();

    std::unique_ptr<X11Connection> server_;
    std::unique_ptr<X11Connection> presses_;
    quint8 inputExtension_ = 0;
    bool held_ = false;
};

} // namespace paneda
