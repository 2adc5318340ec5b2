#include "platform/linux/linux_hotkey.h"

#include "platform/linux/grab_hotkey.h"
#include "platform/linux/portal_hotkey.h"

namespace paneda {

std::unique_ptr<Hotkey> MakeHotkey() {
    if (IsWaylandSession())
        return std::make_unique<PortalHotkey>();
    return std::make_unique<GrabHotkey>();
}

} // namespace paneda
