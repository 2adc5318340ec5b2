#pragma once

#include "core/settings/setting_form.h"
#include "platform/hotkey.h"

#include <QString>

namespace paneda {

// Texts of the settings dialog that depend on what the user typed or on the result of a save. An empty text
// is not shown.

// The line below the number of buttons in a row.
struct NumberHint {
    QString Text;
    bool Usual = true; // the typed number is valid and is used as it is
};

// The number of buttons in a row that a save of the typed text would give.
NumberHint ButtonsPerRowHint(const QString& typed);

// The tool tip of a drive's box. `root` is the host folder of this drive, empty if there is no such drive.
QString DriveToolTip(const QString& letter, const QString& root);

// For a desktop where no program can register a hotkey: how to call the panel there.
QString NoHotkeyText();

// The question before a save if the hotkey is a key of everyday typing, which could then not be typed in any
// program. Empty for any other hotkey.
QString HotkeyQuestion(const SettingForm& form);

// The notice after a save if the hotkey does not work. Empty if it works, if it is switched off, and as long
// as the desktop has not answered.
QString HotkeyProblem(const SettingForm& form, Hotkey::Answer answer);

// The notice after a save if a part of it failed. `autostart`: whether autostart should have been switched on
// (true) or off.
QString SaveProblem(const SettingOutcome& outcome, bool autostart);

} // namespace paneda
