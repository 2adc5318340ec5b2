#include "ui/panel/button_icons.h"

#include "core/panel/launch.h"

namespace paneda {

QString IconTarget(const ButtonEntry& button, const AppState& state) {
    // Whatever browser is chosen, the icon is that of the button's own target.
    const LaunchContext context{state.AppPath, QStringLiteral("default")};
    const ButtonFields fields = ReadButtonFields(state.Drives.ToHost(button.Path, state.AppPath));
    const LaunchRequest request = DecideLaunch(button.Path, fields, context);
    if (request.What == LaunchRequest::Action::OpenDrive)
        return request.Target + QStringLiteral(":\\");
    return request.Target;
}

QImage ButtonIcon(const ButtonEntry& button, int pixels, const AppState& state, FileIcons& icons) {
    return icons.IconOf(IconTarget(button, state), {state.Drives, state.AppPath}, pixels);
}

} // namespace paneda
