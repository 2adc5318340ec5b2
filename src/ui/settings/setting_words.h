#pragma once

#include "core/settings/setting_form.h"
#include "platform/hotkey.h"

#include <QString>

namespace paneda {

// Texts of the settings dialog that depend on what the user typed or what a save met. An empty text means
// that there is nothing to say.

// The line below the number of buttons in a row.
struct NumberHint {
    QString Text;
    bool Usual = true; // the panel will be as wide as the text in the box says
};

// What the typed text will mean once it is saved.
NumberHint ButtonsPerRowHint(const QString& typed);

// Tool tip of a drive's box; `root` is the host folder that the letter stands for, empty for none.
QString DriveToolTip(const QString& letter, const QString& root);

// How to call the panel on a desktop where no program can register a hotkey.
QString NoHotkeyText();

// The question before a save of a hotkey that would take a key of everyday typing away from all programs.
QString HotkeyQuestion(const SettingForm& form);

// The notice after a save when the hotkey does not work. Nothing while the desktop has not answered yet.
QString HotkeyProblem(const SettingForm& form, Hotkey::Answer answer);

// The notice after a save that could not do everything; `autostart` is what was asked of the session.
QString SaveProblem(const SettingOutcome& outcome, bool autostart);

} // namespace paneda
