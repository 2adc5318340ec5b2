#pragma once

#include <functional>

namespace paneda {

// The notification areas in which the desktop shows tray icons. They appear and disappear while the program
// runs.
class TrayHosts {
public:
    enum class Kind {
        None,    // there is no such place at present
        Presses, // it sends each press on an icon
        Menus,   // it sends presses as it likes; some such places show the icon's menu and nothing else
    };

    virtual ~TrayHosts() = default;

    virtual Kind Present() = 0;

    // `changed` is called from the event loop when an area has appeared or disappeared. It replaces the
    // function given before; an empty one ends the watch. Nothing wakes the program while nothing changes.
    virtual void Watch(std::function<void()> changed) = 0;
};

} // namespace paneda
