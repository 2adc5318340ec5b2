#include "ui/panel/button_icons.h"

#include "core/panel/launch.h"

namespace paneda {

QString IconTarget(const ButtonEntry& button, const AppState& state) {
    // The chosen browser opens web addresses, but its icon is not shown for them.
    const LaunchContext context{state.AppPath, QStringLiteral("default")};
    const ButtonFields fields = ReadButtonFields(state.Drives.ToHost(button.Path, state.AppPath));
    const LaunchRequest request = DecideLaunch(button.Path, fields, context);
    if (request.What == LaunchRequest::Action::OpenDrive)
        return request.Target + QStringLiteral(":\\");
    return request.Target;
}

QImage ButtonIcon(const ButtonEntry& button, const IconSize& size, const AppState& state, FileIcons& icons) {
    return icons.IconOf(IconTarget(button, state), {state.Drives, state.AppPath}, size);
}

} // namespace paneda
