#include "platform/linux/linux_pointer.h"

#include <QCursor>

#include <xcb/xinput.h>

namespace paneda {

namespace {

constexpr quint32 kMiddleButton = 2;
// From this version on, raw events arrive even while another program has grabbed the mouse.
constexpr quint16 kInputMajor = 2;
constexpr quint16 kInputMinor = 2;

// The request as the server reads it: the header, then a mask of one 32-bit word.
struct EventMask {
    xcb_input_event_mask_t Header;
    quint32 Bits;
};

} // namespace

bool LinuxPointer::CanSee() const {
    return !IsWaylandSession() && !qEnvironmentVariableIsEmpty("DISPLAY");
}

void LinuxPointer::WatchMiddleButton(bool on) {
    if (on == (presses_ != nullptr) || (on && !CanSee()))
        return;
    // A connection for the presses alone: it is closed with the watch, so that no unread events pile up.
    presses_ = on ? std::make_unique<X11Connection>() : nullptr;
    held_ = false;
    if (presses_ && presses_->IsOpen())
        SelectPresses();
}

void LinuxPointer::SelectPresses() {
    xcb_connection_t* connection = presses_->Get();
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (!extension || !extension->present)
        return;
    const XcbPointer<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection, xcb_input_xi_query_version(connection, kInputMajor, kInputMinor), nullptr));
    if (!version)
        return;
    inputExtension_ = extension->major_opcode;
    const EventMask mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                         XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
                             XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE};
    xcb_input_xi_select_events(connection, presses_->Root(), 1, &mask.Header);
    xcb_flush(connection);
}

std::vector<quint32> LinuxPointer::TakePresses() {
    std::vector<quint32> presses;
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(presses_->Get())}) {
        if ((event->response_type & 0x7F) != XCB_GE_GENERIC)
            continue;
        const auto* raw = reinterpret_cast<const xcb_input_raw_button_press_event_t*>(event.get());
        if (raw->extension != inputExtension_ || raw->detail != kMiddleButton)
            continue;
        held_ = raw->event_type == XCB_INPUT_RAW_BUTTON_PRESS;
        if (held_)
            presses.push_back(raw->time);
    }
    return presses;
}

bool LinuxPointer::IsDownNow() {
    X11Connection& server = Server();
    const XcbPointer<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(server.Get(), xcb_query_pointer(server.Get(), server.Root()), nullptr));
    return reply && (reply->mask & XCB_BUTTON_MASK_2);
}

MiddleButtonLook LinuxPointer::LookAtMiddleButton() {
    if (!presses_)
        return {};
    MiddleButtonLook look;
    look.Presses = TakePresses();
    // The events alone are not enough: a mouse that is unplugged while its button is down sends no release.
    if (inputExtension_ == 0 || held_)
        held_ = IsDownNow();
    look.IsDown = held_;
    return look;
}

QPoint LinuxPointer::Position() {
    // Qt asks the server and scales the answer as it does windows.
    return QCursor::pos();
}

X11Connection& LinuxPointer::Server() {
    if (!server_)
        server_ = std::make_unique<X11Connection>();
    return *server_;
}

} // namespace paneda
