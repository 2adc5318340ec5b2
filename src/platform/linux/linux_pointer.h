#pragma once

#include "platform/linux/x11_connection.h"
#include "platform/pointer.h"

#include <memory>

namespace paneda {

// The mouse as the X server reports it. Presses and releases come as raw events of the input extension, which
// reach this program whatever window they are for. They wait unread on a connection of their own until the
// next look. An X server without the extension tells only whether the button is down at the look.
class LinuxPointer : public Pointer {
public:
    bool CanSee() const override;
    void WatchMiddleButton(bool on) override;
    MiddleButtonLook LookAtMiddleButton() override;
    QPoint Position() override;

private:
    X11Connection& Server();
    void SelectPresses();
    std::vector<quint32> TakePresses();
    bool IsDownNow();

    std::unique_ptr<X11Connection> server_;
    std::unique_ptr<X11Connection> presses_;
    quint8 inputExtension_ = 0;
    bool held_ = false; // as the last event left it
};

} // namespace paneda
