#pragma once

#include "platform/hotkey.h"

#include <memory>

namespace paneda {

// The portal's in a Wayland session, else the grab.
std::unique_ptr<Hotkey> MakeHotkey();

} // namespace paneda
