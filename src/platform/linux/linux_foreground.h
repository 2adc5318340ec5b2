#pragma once

#include "platform/foreground.h"
#include "platform/linux/x11_connection.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace paneda {

// The active window by the window manager's property on the root window; without a window manager, the window
// that has the keyboard focus. A window is activated with the request that task bars use, because focus
// stealing prevention accepts that.
class LinuxForeground : public Foreground {
public:
    WId ActiveWindow() override;
    void Activate(WId window) override;

private:
    bool Connect();
    bool IsManaged(xcb_window_t window) const;
    xcb_window_t FocusWindow() const;
    void WaitFor(xcb_window_t window);
    void ReadLater();
    void ReadEvents();
    void ActivateNow(xcb_window_t window);

    QObject context_;
    std::unique_ptr<X11Connection> x11_;
    std::unique_ptr<QSocketNotifier> notifier_;
    xcb_atom_t activeWindow_ = XCB_ATOM_NONE;
    xcb_atom_t windowState_ = XCB_ATOM_NONE;
    xcb_atom_t managerCheck_ = XCB_ATOM_NONE;
    xcb_window_t waitsFor_ = XCB_NONE;
};

} // namespace paneda
