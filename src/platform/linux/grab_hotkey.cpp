#include "platform/linux/grab_hotkey.h"

#include "platform/linux/key_codes.h"

namespace paneda {

namespace {

KeyboardMap ReadKeyboard(xcb_connection_t* connection) {
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const quint8 count = quint8(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection, setup->min_keycode, count);
    const XcbPointer<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(connection, cookie, nullptr));
    if (!reply || reply->keysyms_per_keycode == 0)
        return {};
    const xcb_keysym_t* first = xcb_get_keyboard_mapping_keysyms(reply.get());
    return {setup->min_keycode,
            reply->keysyms_per_keycode,
            {first, first + xcb_get_keyboard_mapping_keysyms_length(reply.get())}};
}

ModifierMap ReadModifiers(xcb_connection_t* connection) {
    const auto cookie = xcb_get_modifier_mapping(connection);
    const XcbPointer<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(connection, cookie, nullptr));
    if (!reply)
        return {};
    const xcb_keycode_t* first = xcb_get_modifier_mapping_keycodes(reply.get());
    return {reply->keycodes_per_modifier,
            {first, first + xcb_get_modifier_mapping_keycodes_length(reply.get())}};
}

// If one grab fails, the whole registration has failed.
Hotkey::Answer AnswerOf(xcb_connection_t* connection, const std::vector<xcb_void_cookie_t>& cookies) {
    Hotkey::Answer answer = Hotkey::Answer::Registered;
    for (const xcb_void_cookie_t cookie : cookies) {
        const XcbPointer<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
        if (error)
            answer = error->error_code == XCB_ACCESS ? Hotkey::Answer::Taken : Hotkey::Answer::NoSuchKey;
    }
    return xcb_connection_has_error(connection) == 0 ? answer : Hotkey::Answer::Refused;
}

} // namespace

Hotkey::Answer GrabHotkey::Register(int modifiers, int virtualKey, std::function<void()> pressed) {
    ++registration_;
    if (!Connect())
        return state_ = Answer::Refused;
    Ungrab();
    modifiers_ = modifiers;
    virtualKey_ = virtualKey;
    pressed_ = std::move(pressed);
    state_ = Grab();
    if (state_ != Answer::Registered)
        Disconnect();
    return state_;
}

void GrabHotkey::Unregister() {
    ++registration_;
    state_ = Answer::Refused;
    Disconnect();
}

bool GrabHotkey::Connect() {
    if (x11_ && x11_->IsOpen())
        return true;
    Disconnect();
    x11_ = std::make_unique<X11Connection>();
    if (!x11_->IsOpen()) {
        Disconnect();
        return false;
    }
    notifier_ =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(x11_->Get()), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_, [this] { ReadEvents(); });
    return true;
}

void GrabHotkey::Disconnect() {
    notifier_.reset();
    // The server releases the grabs of a connection that ends.
    x11_.reset();
    grabs_.clear();
    down_ = 0;
}

Hotkey::Answer GrabHotkey::Grab() {
    const KeyboardMap keyboard = ReadKeyboard(x11_->Get());
    const ModifierMasks masks = MasksOf(modifiers_, ReadModifiers(x11_->Get()), keyboard);
    const std::vector<quint8> keycodes = KeycodesOf(virtualKey_, keyboard);
    if (!masks.Known || keycodes.empty())
        return Answer::NoSuchKey;
    std::vector<xcb_void_cookie_t> cookies;
    for (const quint8 keycode : keycodes) {
        for (const quint16 locks : masks.Locks) {
            const quint16 state = masks.Wanted | locks;
            cookies.push_back(xcb_grab_key_checked(x11_->Get(), 0, x11_->Root(), state, keycode,
                                                   XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
            grabs_.emplace_back(keycode, state);
        }
    }
    const Answer answer = AnswerOf(x11_->Get(), cookies);
    if (answer != Answer::Registered)
        Ungrab();
    // Reading the replies also read events, which the socket no longer reports.
    QMetaObject::invokeMethod(
        &context_, [this] { ReadEvents(); }, Qt::QueuedConnection);
    return answer;
}

void GrabHotkey::Ungrab() {
    for (const auto& [keycode, state] : grabs_)
        xcb_ungrab_key(x11_->Get(), keycode, x11_->Root(), state);
    grabs_.clear();
    xcb_flush(x11_->Get());
}

void GrabHotkey::ReadEvents() {
    if (!x11_)
        return;
    bool isPressed = false;
    bool mapChanged = false;
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(x11_->Get())}) {
        isPressed = IsPress(*event) || isPressed;
        mapChanged = mapChanged || (event->response_type & 0x7F) == XCB_MAPPING_NOTIFY;
    }
    if (!x11_->IsOpen()) {
        // The X server has ended. Its socket stays readable and would wake the program without end.
        state_ = Answer::Refused;
        notifier_->setEnabled(false);
        return;
    }
    if (mapChanged) {
        Ungrab();
        state_ = Grab();
    }
    if (isPressed)
        CallLater();
}

// A key that is held down repeats as a release and a press with the same time, or as presses alone.
bool GrabHotkey::IsPress(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7F;
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return false;
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (type == XCB_KEY_RELEASE) {
        down_ = 0;
        releasedAt_ = key.time;
        return false;
    }
    const bool isRepeat = down_ == key.detail || releasedAt_ == key.time;
    down_ = key.detail;
    return !isRepeat;
}

// `pressed_` may call Register, which must not happen while events are read.
void GrabHotkey::CallLater() {
    QMetaObject::invokeMethod(
        &context_,
        [this, registration = registration_] {
            if (registration != registration_)
                return;
            const std::function<void()> pressed = pressed_;
            pressed();
        },
        Qt::QueuedConnection);
}

} // namespace paneda
