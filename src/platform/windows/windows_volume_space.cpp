#include "platform/windows/windows_volume_space.h"

#include "platform/windows/quiet_errors.h"
#include "platform/windows/wide_text.h"

#include <QDir>

#include <windows.h>

namespace paneda {

VolumeSpace AskVolumeSpace(const QString& root) {
    if (root.isEmpty())
        return {};
    const QuietErrors quiet;
    QString folder = QDir::toNativeSeparators(root);
    if (!folder.endsWith(u'\\'))
        folder += u'\\';
    ULARGE_INTEGER forUser{};
    ULARGE_INTEGER total{};
    if (!GetDiskFreeSpaceExW(Wide(folder), &forUser, &total, nullptr))
        return {};
    wchar_t label[MAX_PATH + 1] = {};
    // Ignored: a volume whose label cannot be read is shown without one.
    GetVolumeInformationW(Wide(folder), label, MAX_PATH + 1, nullptr, nullptr, nullptr, nullptr, 0);
    return {QString::fromWCharArray(label), total.QuadPart, forUser.QuadPart};
}

} // namespace paneda
