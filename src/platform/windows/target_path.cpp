#include "platform/windows/target_path.h"

#include "core/files/web_addresses.h"
#include "core/text/text_rules.h"
#include "platform/windows/wide_text.h"

#include <QDir>
#include <QFileInfo>

#include <windows.h>

#include <array>
#include <memory>

namespace paneda {

namespace {

constexpr DWORD kLongestPath = 32'768; // characters, with the mark at its end

using PathBuffer = std::array<wchar_t, kLongestPath>;

QString WithinShellLimit(const QString& path) {
    if (path.size() < MAX_PATH)
        return path;
    static const QString kLongMark = QStringLiteral("\\\\?\\");
    const auto shortPath = std::make_unique<PathBuffer>();
    const DWORD length = GetShortPathNameW(Wide(QString(kLongMark + path)), shortPath->data(), kLongestPath);
    if (length == 0 || length >= kLongestPath)
        return path;
    return QString::fromWCharArray(shortPath->data(), int(length)).mid(kLongMark.size());
}

QString RegisteredProgram(const QString& name) {
    const QString key = QStringLiteral("Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\") + name;
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        const auto path = std::make_unique<PathBuffer>();
        DWORD size = sizeof(PathBuffer);
        if (RegGetValueW(hive, Wide(key), nullptr, RRF_RT_REG_SZ, nullptr, path->data(), &size) ==
            ERROR_SUCCESS)
            return QString::fromWCharArray(path->data()).remove(u'"');
    }
    return {};
}

} // namespace

QString HostTarget(const QString& target, const LaunchPaths& paths) {
    if (target.startsWith(u"shell:", Qt::CaseInsensitive))
        return target;
    if (IsAddress(target))
        return AddressOfAnyScheme(target).value_or(QString());
    // An empty name would mean the program's own folder.
    if (TrimBlanks(target).isEmpty())
        return {};
    const QString path = QDir::toNativeSeparators(target);
    if (path.startsWith(QStringLiteral("\\\\")) || path.mid(1, 1) == u":")
        return WithinShellLimit(path);
    if (path.startsWith(u'\\'))
        return WithinShellLimit(paths.AppPath.left(2) + path);
    const QString inFolder = paths.AppPath + u'\\' + path;
    return QFileInfo::exists(inFolder) ? WithinShellLimit(inFolder) : path;
}

QString FindProgram(const QString& name) {
    const auto path = std::make_unique<PathBuffer>();
    const DWORD length = SearchPathW(nullptr, Wide(name), L".exe", kLongestPath, path->data(), nullptr);
    if (length > 0 && length < kLongestPath)
        return QString::fromWCharArray(path->data(), int(length));
    return RegisteredProgram(QFileInfo(name).suffix().isEmpty() ? name + QStringLiteral(".exe") : name);
}

} // namespace paneda
