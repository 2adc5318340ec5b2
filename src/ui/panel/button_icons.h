#pragma once

#include "core/settings/app_state.h"
#include "platform/file_icons.h"

#include <QImage>

namespace paneda {

// The file, folder, drive or address whose icon the button shows: the target of its record, the drive of a
// drive button, otherwise the button's own file. A path in the stored form, or a web address. `button`: its
// path. May be called on any thread.
QString IconTarget(const QString& button, const LaunchPaths& paths);

// The icon, a square of size.OnScreen().
QImage ButtonIcon(const ButtonEntry& button, const IconSize& size, const AppState& state, FileIcons& icons);

} // namespace paneda
