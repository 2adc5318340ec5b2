#pragma once

#include <functional>

namespace paneda {

// A key combination that works whatever window has the focus.
class Hotkey {
public:
    // How the desktop provides hotkeys. The settings dialog shows it.
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

    // Changes from Portal to None when the desktop answers that it has no portal.
    virtual Means Kind() const = 0;

    // Replaces the combination registered before. `modifiers` is made of HotkeyModifier bits, `virtualKey`
    // comes from the key table. `pressed` is called from the event loop, once for each press however long the
    // key is held, until Unregister or the next Register. After an answer other than Registered and Asked
    // nothing is registered.
    virtual Answer Register(int modifiers, int virtualKey, std::function<void()> pressed) = 0;

    // `pressed` is not called after this. Does nothing if nothing is registered.
    virtual void Unregister() = 0;

    // The state of the last registration by now; Refused if there is none.
    virtual Answer State() const = 0;
};

} // namespace paneda
