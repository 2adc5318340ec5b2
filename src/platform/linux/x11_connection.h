#pragma once

#include <QtGlobal>

#include <array>
#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace paneda {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
// The receiver has to free the replies, events and errors of xcb.
template <class Reply>
using XcbPointer = std::unique_ptr<Reply, FreeReply>;

// A connection to the X server beside Qt's own, so that the events that it selects do not reach Qt.
class X11Connection {
public:
    // Without an X server the connection is not open; all calls are then harmless and return empty values.
    X11Connection();

    bool IsOpen() const;
    xcb_connection_t* Get() const { return connection_.get(); }
    xcb_window_t Root() const { return root_; }
    // The number of the screen that the root window belongs to.
    int ScreenNumber() const { return screenNumber_; }

    // XCB_ATOM_NONE if the server does not answer.
    xcb_atom_t Atom(const char* name) const;

    // The first 32-bit value of a window's property; 0 if there is none.
    quint32 FirstValue(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;

    // The first 32-bit values of a window's property, at most `count`; empty if there is none of this type.
    std::vector<quint32> Values(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                std::size_t count) const;

    // A client message about a window, sent to the window manager.
    void TellManager(xcb_window_t window, xcb_atom_t type, const std::array<quint32, 5>& data) const;

private:
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_;
    int screenNumber_ = 0;
    xcb_window_t root_ = XCB_NONE;
};

// Whether the session's windows belong to a Wayland compositor, where an X server sees only a part of them.
bool IsWaylandSession();

} // namespace paneda
