#include "platform/linux/x11_connection.h"

#include <algorithm>
#include <cstring>

namespace paneda {

X11Connection::X11Connection() : connection_(nullptr, &xcb_disconnect) {
    connection_.reset(xcb_connect(nullptr, &screenNumber_));
    if (!IsOpen())
        return;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(Get()));
    for (int i = 0; i < screenNumber_ && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    root_ = screens.data->root;
}

bool X11Connection::IsOpen() const {
    return xcb_connection_has_error(Get()) == 0;
}

xcb_atom_t X11Connection::Atom(const char* name) const {
    const auto cookie = xcb_intern_atom(Get(), 0, quint16(std::strlen(name)), name);
    const XcbPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(Get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

quint32 X11Connection::FirstValue(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const {
    const auto cookie = xcb_get_property(Get(), 0, window, property, type, 0, 1);
    const XcbPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(Get(), cookie, nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) != sizeof(quint32))
        return 0;
    return *static_cast<const quint32*>(xcb_get_property_value(reply.get()));
}

std::vector<quint32> X11Connection::Values(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                           std::size_t count) const {
    const auto cookie = xcb_get_property(Get(), 0, window, property, type, 0, quint32(count));
    const XcbPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(Get(), cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* first = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return {first, first + std::size_t(xcb_get_property_value_length(reply.get())) / sizeof(quint32)};
}

void X11Connection::TellManager(xcb_window_t window, xcb_atom_t type,
                                const std::array<quint32, 5>& data) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(Get(), 0, root_, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(Get());
}

bool IsWaylandSession() {
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace paneda
