#pragma once

#include <QString>

#include <functional>

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

    // `root` is the host folder of a drive; an empty one has no media. Returns within a few hundredths of a
    // second, also for a volume that does not answer: with the figures of the last time, and without media
    // when it has not answered for half a second.
    virtual VolumeSpace SpaceOf(const QString& root) = 0;

    // `changed` is called from the event loop when another call of SpaceOf would give something newer than
    // the last one did, since a volume has answered late or not at all. It replaces the function given
    // before; an empty one ends the watch.
    virtual void Watch(std::function<void()> changed) = 0;
};

} // namespace paneda
