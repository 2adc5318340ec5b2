#pragma once

#include "platform/hotkey.h"

#include <memory>

namespace paneda {

// A PortalHotkey in a Wayland session, else a GrabHotkey.
std::unique_ptr<Hotkey> MakeHotkey();

} // namespace paneda
