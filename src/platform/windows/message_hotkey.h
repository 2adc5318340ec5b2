#pragma once

#include "platform/hotkey.h"
#include "platform/windows/message_window.h"

#include <QtGlobal>

#include <memory>

namespace paneda {

// The hotkey by the system's registration. The combination belongs to one program at a time, and some belong
// to the system for good.
class MessageHotkey : public Hotkey {
public:
    MessageHotkey() = default;
    ~MessageHotkey() override;
    Q_DISABLE_COPY_MOVE(MessageHotkey)

    Means Kind() const override { return Means::Grab; }
    Answer Register(int modifiers, int virtualKey, std::function<void()> pressed) override;
    void Unregister() override;
    Answer State() const override { return state_; }

private:
    void OnPress(int id);

    std::unique_ptr<MessageWindow> window_;
    std::function<void()> pressed_;
    // A number of its own for each registration, so that a press of a former one is known for what it is.
    int id_ = 0;
    Answer state_ = Answer::Refused;
};

} // namespace paneda
