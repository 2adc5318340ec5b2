#pragma once

#include "platform/hotkey.h"
#include "platform/linux/x11_connection.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <utility>
#include <vector>

namespace paneda {

// A hotkey by passive grabs on the X server's root window: one for each combination of the locks (Caps Lock,
// Num Lock), all of them or none. The keys are grabbed again when the keyboard layout changes. The connection
// is open only while something is registered.
class GrabHotkey : public Hotkey {
public:
    Means Kind() const override { return Means::Grab; }
    Answer Register(int modifiers, int virtualKey, std::function<void()> pressed) override;
    void Unregister() override;
    Answer State() const override { return state_; }

private:
    bool Connect();
    void Disconnect();
    Answer Grab();
    void Ungrab();
    void ReadEvents();
    bool IsPress(const xcb_generic_event_t& event);
    void CallLater();

    QObject context_; // calls posted to it are dropped when this object is deleted
    std::unique_ptr<X11Connection> x11_;
    std::unique_ptr<QSocketNotifier> notifier_;
    int modifiers_ = 0;
    int virtualKey_ = 0;
    std::function<void()> pressed_;
    std::vector<std::pair<xcb_keycode_t, quint16>> grabs_;
    Answer state_ = Answer::Refused;
    int registration_ = 0;
    xcb_keycode_t down_ = 0;
    xcb_timestamp_t releasedAt_ = 0;
};

} // namespace paneda
