#include "platform/linux/linux_foreground.h"

namespace paneda {

namespace {

// Source of a request in the window manager protocol: "pager", which means a direct action of the user.
constexpr quint32 kSourceIsUser = 2;

} // namespace

WId LinuxForeground::ActiveWindow() {
    if (!Connect())
        return 0;
    if (waitsFor_ != XCB_NONE)
        ReadLater();
    if (x11_->FirstValue(x11_->Root(), managerCheck_, XCB_ATOM_WINDOW) == XCB_NONE)
        return FocusWindow();
    return x11_->FirstValue(x11_->Root(), activeWindow_, XCB_ATOM_WINDOW);
}

void LinuxForeground::Activate(WId window) {
    if (window == 0 || !Connect())
        return;
    const bool hasManager = x11_->FirstValue(x11_->Root(), managerCheck_, XCB_ATOM_WINDOW) != XCB_NONE;
    if (hasManager)
        WaitFor(xcb_window_t(window));
    if (!hasManager || IsManaged(xcb_window_t(window)))
        ActivateNow(xcb_window_t(window));
}

bool LinuxForeground::Connect() {
    if (x11_)
        return x11_->IsOpen();
    x11_ = std::make_unique<X11Connection>();
    if (!x11_->IsOpen())
        return false;
    activeWindow_ = x11_->Atom("_NET_ACTIVE_WINDOW");
    windowState_ = x11_->Atom("WM_STATE");
    managerCheck_ = x11_->Atom("_NET_SUPPORTING_WM_CHECK");
    notifier_ =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(x11_->Get()), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_, [this] { ReadEvents(); });
    return true;
}

// Withdrawn is 0; a normal or a minimized window can be activated.
bool LinuxForeground::IsManaged(xcb_window_t window) const {
    return x11_->FirstValue(window, windowState_, windowState_) != 0;
}

xcb_window_t LinuxForeground::FocusWindow() const {
    const XcbPointer<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(x11_->Get(), xcb_get_input_focus(x11_->Get()), nullptr));
    // 1 stands for the root window, which is nobody's.
    return reply && reply->focus > 1 ? reply->focus : xcb_window_t(XCB_NONE);
}

// The window manager may not yet know a window that has just been shown, and would ignore the request.
void LinuxForeground::WaitFor(xcb_window_t window) {
    const auto select = [this](xcb_window_t of, quint32 mask) {
        xcb_change_window_attributes(x11_->Get(), of, XCB_CW_EVENT_MASK, &mask);
    };
    if (waitsFor_ != XCB_NONE)
        select(waitsFor_, XCB_EVENT_MASK_NO_EVENT);
    waitsFor_ = window;
    if (waitsFor_ != XCB_NONE)
        select(waitsFor_, XCB_EVENT_MASK_PROPERTY_CHANGE);
    xcb_flush(x11_->Get());
    ReadLater();
}

// Reading a reply also reads the events before it, so that the socket no longer reports them.
void LinuxForeground::ReadLater() {
    QMetaObject::invokeMethod(
        &context_, [this] { ReadEvents(); }, Qt::QueuedConnection);
}

void LinuxForeground::ReadEvents() {
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(x11_->Get())}) {
        // Errors, for a window that no longer exists, have the type 0 and are ignored.
        if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
            continue;
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if (change.window == waitsFor_ && change.atom == windowState_ && IsManaged(waitsFor_))
            ActivateNow(waitsFor_);
    }
    if (!x11_->IsOpen())
        notifier_->setEnabled(false);
}

void LinuxForeground::ActivateNow(xcb_window_t window) {
    if (waitsFor_ != XCB_NONE)
        WaitFor(XCB_NONE);
    x11_->TellManager(window, activeWindow_, {kSourceIsUser, XCB_CURRENT_TIME, XCB_NONE, 0, 0});
    const quint32 above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(x11_->Get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    if (x11_->FirstValue(x11_->Root(), managerCheck_, XCB_ATOM_WINDOW) == XCB_NONE)
        xcb_set_input_focus(x11_->Get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(x11_->Get());
}

} // namespace paneda
