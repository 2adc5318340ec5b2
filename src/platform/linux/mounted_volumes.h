#pragma once

#include "platform/volumes.h"

#include <QByteArray>
#include <QFile>
#include <QSocketNotifier>
#include <QStringList>

#include <memory>

namespace paneda {

// The mount points in a table like /proc/self/mounts: one line each, with fields separated by blanks. The
// second field is the mount point, in which a backslash and three octal digits stand for a blank or another
// special character. Lines of any other form are skipped.
QStringList MountPointsOf(const QByteArray& table);

// Volumes by the kernel's mount table. To read the table does not access the volumes, so that a volume that
// hangs does not block the program.
class MountedVolumes : public Volumes {
public:
    void Refresh(DriveMap& map) override;
    void Watch(std::function<void()> changed) override;

private:
    QFile table_; // open while it is watched
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace paneda
