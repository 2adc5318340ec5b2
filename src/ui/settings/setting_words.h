#pragma once

#include "core/settings/setting_form.h"
#include "platform/hotkey.h"

#include <QString>

namespace paneda {

// Words of the settings dialog that depend on what it finds.

// A text that is a link as a whole, to be shown by a label.
QString LinkText(const QString& text);

// Tool tip of a drive's box; `root` is the host folder that the letter stands for, empty for none.
QString DriveToolTip(const QString& letter, const QString& root);

// What takes the place of the hotkey on a desktop that gives none.
QString NoHotkeyText();

// What to tell of the hotkey behind a save; empty when it works, is off, or may still come.
QString HotkeyProblem(const SettingForm& form, Hotkey::Answer answer);

} // namespace paneda
