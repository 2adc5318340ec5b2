#include "platform/linux/embed_hosts.h"

namespace paneda {

EmbedHosts::EmbedHosts() {
    if (!x11_.IsOpen())
        return;
    const QByteArray name = "_NET_SYSTEM_TRAY_S" + QByteArray::number(x11_.ScreenNumber());
    selection_ = x11_.Atom(name.constData());
    manager_ = x11_.Atom("MANAGER");
    // A new owner announces itself on the root window.
    const quint32 mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x11_.Get(), x11_.Root(), XCB_CW_EVENT_MASK, &mask);
    socket_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(x11_.Get()), QSocketNotifier::Read);
    connect(socket_.get(), &QSocketNotifier::activated, this, &EmbedHosts::ReadEvents);
    FindOwner();
}

void EmbedHosts::FindOwner() {
    xcb_connection_t* connection = x11_.Get();
    const XcbPointer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection_), nullptr));
    owner_ = reply ? reply->owner : xcb_window_t(XCB_NONE);
    if (owner_ != XCB_NONE) {
        const quint32 mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        const auto cookie =
            xcb_change_window_attributes_checked(connection, owner_, XCB_CW_EVENT_MASK, &mask);
        // An owner that has ended in the meantime sends no event.
        if (const XcbPointer<xcb_generic_error_t> error{xcb_request_check(connection, cookie)})
            owner_ = XCB_NONE;
    }
    ReadLater();
}

// Reading a reply also reads the events before it, so that the socket no longer reports them.
void EmbedHosts::ReadLater() {
    QMetaObject::invokeMethod(
        this, [this] { ReadEvents(); }, Qt::QueuedConnection);
}

void EmbedHosts::ReadEvents() {
    bool news = false;
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(x11_.Get())})
        news = IsNews(*event) || news;
    if (!x11_.IsOpen()) {
        socket_->setEnabled(false);
        return;
    }
    if (!news)
        return;
    FindOwner();
    Q_EMIT Changed();
}

bool EmbedHosts::IsNews(const xcb_generic_event_t& event) const {
    const int type = event.response_type & 0x7F;
    if (type == XCB_DESTROY_NOTIFY)
        return reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == owner_;
    if (type != XCB_CLIENT_MESSAGE)
        return false;
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    return message.type == manager_ && message.data.data32[1] == selection_;
}

} // namespace paneda
