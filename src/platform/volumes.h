#pragma once

#include "core/files/drive_map.h"

#include <functional>

namespace paneda {

// The volumes that the machine has mounted.
class Volumes {
public:
    virtual ~Volumes() = default;

    // Adds to the map the volumes that were mounted since the last call. Volumes that are in the map keep
    // their letters, so that a path means the same as long as the program runs. Does nothing on a host with
    // drive letters.
    virtual void Refresh(DriveMap& map) = 0;

    // `changed` is called from the event loop when a volume was mounted or unmounted, or a medium put into a
    // drive or taken out. It replaces the function given before; an empty one ends the watch. Nothing wakes
    // the program while nothing changes.
    virtual void Watch(std::function<void()> changed) = 0;
};

} // namespace paneda
