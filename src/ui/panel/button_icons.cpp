#include "ui/panel/button_icons.h"

#include "core/panel/launch.h"

namespace paneda {

QString IconTarget(const QString& button, const LaunchPaths& paths) {
    // The chosen browser opens web addresses, but its icon is not shown for them.
    const LaunchContext context{paths.AppPath, QStringLiteral("default")};
    const ButtonFields fields = ReadButtonFields(paths.Drives.ToHost(button, paths.AppPath));
    const LaunchRequest request = DecideLaunch(button, fields, context);
    if (request.What == LaunchRequest::Action::OpenDrive)
        return request.Target + QStringLiteral(":\\");
    return request.Target;
}

QImage ButtonIcon(const ButtonEntry& button, const IconSize& size, const AppState& state, FileIcons& icons) {
    const LaunchPaths paths{state.Drives, state.AppPath};
    return icons.IconOf(IconTarget(button.Path, paths), paths, size);
}

} // namespace paneda
