#pragma once

#include "core/settings/app_state.h"
#include "platform/file_icons.h"

#include <QImage>

namespace paneda {

// What a button's icon is the icon of: a record's target, a drive, else the button's own file. Stored form or
// a web address.
QString IconTarget(const ButtonEntry& button, const AppState& state);

QImage ButtonIcon(const ButtonEntry& button, int pixels, const AppState& state, FileIcons& icons);

} // namespace paneda
