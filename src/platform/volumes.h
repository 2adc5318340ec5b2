#pragma once

#include "core/files/drive_map.h"

#include <functional>

namespace paneda {

// The volumes that the machine has mounted.
class Volumes {
public:
    virtual ~Volumes() = default;

    // Adds volumes that have come since the last call to the map; those it has keep their letters, so that a
    // path means the same as long as the program runs. Nothing happens on a host with drive letters.
    virtual void Refresh(DriveMap& map) = 0;

    // `changed` is called from the event loop when a volume has come or gone, or a medium in a drive. It
    // replaces the one given before; an empty one ends it. Costs nothing while nothing changes.
    virtual void Watch(std::function<void()> changed) = 0;
};

} // namespace paneda
