#include "platform/windows/message_hotkey.h"

#include "core/panel/triggers.h"

namespace paneda {

namespace {

constexpr int kLastId = 0xBFFF; // the largest that the system lets a program use

static_assert(kHotkeyAlt == MOD_ALT && kHotkeyCtrl == MOD_CONTROL && kHotkeyShift == MOD_SHIFT &&
              kHotkeyWin == MOD_WIN);

} // namespace

MessageHotkey::~MessageHotkey() {
    Unregister();
}

Hotkey::Answer MessageHotkey::Register(int modifiers, int virtualKey, std::function<void()> pressed) {
    Unregister();
    if (virtualKey == 0)
        return state_ = Answer::NoSuchKey;
    if (!window_)
        window_ = std::make_unique<MessageWindow>(
            MessageWindow::Reach::Addressed,
            [this](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
                if (message != WM_HOTKEY)
                    return std::nullopt;
                OnPress(int(wParam));
                return 0;
            });
    if (!window_->Get())
        return state_ = Answer::Refused;
    id_ = id_ == kLastId ? 1 : id_ + 1;
    pressed_ = std::move(pressed);
    if (RegisterHotKey(window_->Get(), id_, UINT(modifiers) | MOD_NOREPEAT, UINT(virtualKey)))
        return state_ = Answer::Registered;
    return state_ = GetLastError() == ERROR_HOTKEY_ALREADY_REGISTERED ? Answer::Taken : Answer::Refused;
}

void MessageHotkey::Unregister() {
    if (state_ == Answer::Registered)
        UnregisterHotKey(window_->Get(), id_);
    state_ = Answer::Refused;
}

void MessageHotkey::OnPress(int id) {
    // A press may still wait in the queue when its registration has ended.
    if (id != id_ || state_ != Answer::Registered)
        return;
    // At once, because only the program that got the last input may come to the front. A copy, because the
    // call may register another function.
    const std::function<void()> pressed = pressed_;
    pressed();
}

} // namespace paneda
