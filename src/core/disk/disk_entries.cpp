#include "core/disk/disk_entries.h"

#include <QFileInfo>

namespace paneda {

QString LinkTarget(const DiskPath& path) {
    const QFileInfo info(path.Text());
    if (path.RefusesLinks() || !info.isSymbolicLink())
        return {};
    return info.exists() ? info.canonicalFilePath() : info.symLinkTarget();
}

} // namespace paneda
