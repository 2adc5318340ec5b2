#pragma once

#include <QString>

namespace paneda {

// What a drive button shows of its volume.
struct VolumeSpace {
    QString Label;          // empty if the volume has none
    quint64 TotalBytes = 0; // 0 for a drive without media
    quint64 FreeBytes = 0;  // for the user, not for the superuser
};

// Free and total space of volumes.
class DriveSpace {
public:
    virtual ~DriveSpace() = default;

    // `root` is the host folder of a drive; an empty one has no media.
    virtual VolumeSpace SpaceOf(const QString& root) = 0;
};

} // namespace paneda
