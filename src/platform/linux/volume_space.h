#pragma once

#include "platform/drive_space.h"

namespace paneda {

class LinuxVolumeSpace : public DriveSpace {
public:
    VolumeSpace SpaceOf(const QString& root) override;
};

} // namespace paneda
