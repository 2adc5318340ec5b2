#pragma once

#include "core/settings/app_state.h"
#include "platform/file_icons.h"

#include <QImage>

namespace paneda {

// The file, folder, drive or address whose icon the button shows: the target of its record, the drive of a
// drive button, otherwise the button's own file. A path in the stored form, or a web address.
QString IconTarget(const ButtonEntry& button, const AppState& state);

// The icon, a square of size.OnScreen().
QImage ButtonIcon(const ButtonEntry& button, const IconSize& size, const AppState& state, FileIcons& icons);

} // namespace paneda
