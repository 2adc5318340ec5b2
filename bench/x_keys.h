#pragma once

#include <memory>

#include <xcb/xcb.h>

namespace paneda::bench {

// Presses the keys of the hotkey Ctrl+Alt+K as the X server's own keyboard does.
class XKeys {
public:
    XKeys();

    void HoldModifiers();
    void PressK();
    void ReleaseAll();

private:
    xcb_keycode_t CodeOf(xcb_keysym_t symbol) const;
    void Send(bool press, xcb_keycode_t key);

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_;
    xcb_keycode_t control_;
    xcb_keycode_t alt_;
    xcb_keycode_t letter_;
};

} // namespace paneda::bench
