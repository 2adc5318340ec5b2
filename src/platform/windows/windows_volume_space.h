#pragma once

#include "platform/drive_space.h"

namespace paneda {

// Label and room of a drive. One without a medium is passed over in silence.
class WindowsVolumeSpace : public DriveSpace {
public:
    VolumeSpace SpaceOf(const QString& root) override;
};

} // namespace paneda
