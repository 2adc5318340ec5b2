#include "platform/linux/volume_space.h"

#include <QStorageInfo>

#include <algorithm>

namespace paneda {

VolumeSpace LinuxVolumeSpace::SpaceOf(const QString& root) {
    const QStorageInfo storage(root);
    if (root.isEmpty() || !storage.isValid() || !storage.isReady())
        return {};
    return {storage.name(), quint64(std::max<qint64>(storage.bytesTotal(), 0)),
            quint64(std::max<qint64>(storage.bytesAvailable(), 0))};
}

} // namespace paneda
