#pragma once

#include "platform/volumes.h"

#include <QByteArray>
#include <QFile>
#include <QSocketNotifier>
#include <QStringList>

#include <memory>

namespace paneda {

// Mount points in a table of the form of /proc/self/mounts: a line each, fields separated by blanks, the
// second one the mount point with blanks and the like as three octal digits behind a backslash. Lines of
// another form are skipped.
QStringList MountPointsOf(const QByteArray& table);

// Volumes of the kernel's mount table. Reading it asks no volume, so that one that hangs does no harm.
class MountedVolumes : public Volumes {
public:
    void Refresh(DriveMap& map) override;
    void Watch(std::function<void()> changed) override;

private:
    QFile table_; // open as long as it is watched
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace paneda
