#pragma once

#include "core/files/drive_map.h"

namespace paneda {

// The volumes that the machine has mounted.
class Volumes {
public:
    virtual ~Volumes() = default;

    // Adds volumes that have come since the last call to the map; those it has keep their letters, so that a
    // path means the same as long as the program runs. Nothing happens on a host with drive letters.
    virtual void Refresh(DriveMap& map) = 0;
};

} // namespace paneda
