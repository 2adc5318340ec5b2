#include "platform/linux/x11_compositor.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace paneda {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

// The first screen of the display: nearly every desktop has only one.
constexpr char kSelection[] = "_NET_WM_CM_S0";

} // namespace

bool X11Compositor::IsActive() {
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    // Other window systems of a Linux desktop always composite.
    if (!x11)
        return QGuiApplication::platformName().startsWith(u"wayland");
    xcb_connection_t* connection = x11->connection();
    // Qt's platform without windows offers the interface and has no connection.
    if (!connection)
        return false;
    const auto atomCookie = xcb_intern_atom(connection, 0, sizeof(kSelection) - 1, kSelection);
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> atom(
        xcb_intern_atom_reply(connection, atomCookie, nullptr));
    if (!atom)
        return false;
    const auto ownerCookie = xcb_get_selection_owner(connection, atom->atom);
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> owner(
        xcb_get_selection_owner_reply(connection, ownerCookie, nullptr));
    return owner && owner->owner != XCB_NONE;
}

} // namespace paneda
