#include "x_keys.h"

#include <cstdlib>

#include <xcb/xtest.h>

namespace paneda::bench {

namespace {

constexpr xcb_keysym_t kControlLeft = 0xffe3;
constexpr xcb_keysym_t kAltLeft = 0xffe9;
constexpr xcb_keysym_t kSmallK = 0x6b;

} // namespace

XKeys::XKeys()
    : connection_(xcb_connect(nullptr, nullptr), &xcb_disconnect)
    , control_(CodeOf(kControlLeft))
    , alt_(CodeOf(kAltLeft))
    , letter_(CodeOf(kSmallK)) {}

xcb_keycode_t XKeys::CodeOf(xcb_keysym_t symbol) const {
    const xcb_setup_t* setup = xcb_get_setup(connection_.get());
    const auto count = std::uint8_t(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection_.get(), setup->min_keycode, count);
    auto* mapping = xcb_get_keyboard_mapping_reply(connection_.get(), cookie, nullptr);
    xcb_keycode_t code = 0;
    for (int i = 0; mapping && i < count && code == 0; ++i) {
        if (xcb_get_keyboard_mapping_keysyms(mapping)[i * mapping->keysyms_per_keycode] == symbol)
            code = xcb_keycode_t(setup->min_keycode + i);
    }
    std::free(mapping);
    return code;
}

void XKeys::Send(bool press, xcb_keycode_t key) {
    xcb_test_fake_input(connection_.get(), press ? XCB_KEY_PRESS : XCB_KEY_RELEASE, key, XCB_CURRENT_TIME,
                        XCB_NONE, 0, 0, 0);
    xcb_flush(connection_.get());
}

void XKeys::HoldModifiers() {
    Send(true, control_);
    Send(true, alt_);
}

void XKeys::PressK() {
    Send(true, letter_);
}

void XKeys::ReleaseAll() {
    for (const xcb_keycode_t key : {letter_, alt_, control_})
        Send(false, key);
}

} // namespace paneda::bench
