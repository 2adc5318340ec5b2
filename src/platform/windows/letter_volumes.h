#pragma once

#include "platform/volumes.h"

namespace paneda {

// The host's own drive letters, of which the map needs no list.
class LetterVolumes : public Volumes {
public:
    void Refresh(DriveMap&) override {}
};

} // namespace paneda
