#pragma once

#include "platform/drive_space.h"

namespace paneda {

// Label and space of a drive. An empty drive gives empty values; the system shows no message.
class WindowsVolumeSpace : public DriveSpace {
public:
    VolumeSpace SpaceOf(const QString& root) override;
};

} // namespace paneda
