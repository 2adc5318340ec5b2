#pragma once

#include <functional>

namespace paneda {

// A key combination that works whatever window has the focus.
class Hotkey {
public:
    // By what means the desktop gives it; the settings tell the user.
    enum class Means {
        None,   // not at all
        Grab,   // of the key on the whole display
        Portal, // asked of the desktop, where the user may change or refuse it
    };

    enum class Answer {
        Registered,
        Asked,     // the desktop has been asked and answers later, perhaps never
        Taken,     // another program has the combination
        NoSuchKey, // the keyboard has no such key or modifier; also for key 0
        Refused,   // there are no means, or the desktop said no
    };

    virtual ~Hotkey() = default;

    // May turn from Portal to None once the desktop has told that it has no portal.
    virtual Means Kind() const = 0;

    // Replaces the combination registered before. `modifiers` is made of HotkeyModifier bits, `virtualKey`
    // comes from the key table. `pressed` is called from the event loop, once for each press however long the
    // key is held. On an answer other than Registered and Asked nothing is registered.
    virtual Answer Register(int modifiers, int virtualKey, std::function<void()> pressed) = 0;

    // No call of `pressed` comes after it. Nothing happens when nothing is registered.
    virtual void Unregister() = 0;

    // How the last registration stands by now; Refused when there is none.
    virtual Answer State() const = 0;
};

} // namespace paneda
