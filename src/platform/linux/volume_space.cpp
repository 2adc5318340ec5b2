#include "platform/linux/volume_space.h"

#include <QStorageInfo>

#include <algorithm>

namespace paneda {

VolumeSpace AskVolumeSpace(const QString& root) {
    const QStorageInfo storage(root);
    // The folder of a volume that has gone lies on another volume.
    if (root.isEmpty() || !storage.isReady() || storage.rootPath() != root)
        return {};
    return {storage.name(), quint64(std::max<qint64>(storage.bytesTotal(), 0)),
            quint64(std::max<qint64>(storage.bytesAvailable(), 0))};
}

} // namespace paneda
