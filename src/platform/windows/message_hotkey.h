#pragma once

#include "platform/hotkey.h"
#include "platform/windows/message_window.h"

#include <QtGlobal>

#include <memory>

namespace paneda {

// A hotkey by the system's RegisterHotKey. Only one program at a time can register a combination; some are
// reserved by the system.
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
    // Each registration has a new number, so that a press of an earlier one is recognised and ignored.
    int id_ = 0;
    Answer state_ = Answer::Refused;
};

} // namespace paneda
