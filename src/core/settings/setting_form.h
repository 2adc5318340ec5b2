#pragma once

#include "core/files/config_file.h"
#include "core/files/ini_text.h"
#include "core/settings/app_state.h"

#include <functional>
#include <optional>
#include <vector>

namespace paneda {

// What the settings dialog shows: the values of its controls.
struct SettingForm {
    DriveTableFlags DriveTable{};
    bool DriveOfProgram = false;
    QString ButtonsPerRow; // as typed; the number at the start of the text is used
    bool HideAfterLaunch = false;
    bool MouseTriggerEnabled = false;
    bool MouseClick = false; // a single click calls the panel; otherwise a double click or a long press
    bool MouseShowCenter = false;
    bool HotkeyEnabled = false;
    bool HotkeyCtrl = false;
    bool HotkeyAlt = false;
    bool HotkeyShift = false;
    bool HotkeyWin = false;
    int HotkeyKey = 0; // virtual key code; 0 for no key
    bool HotkeyShowCenter = false;
    bool Autostart = false;
    QString UserName;
    QString UserId;
    bool ShowFeed = false;
    QString FeedHeight; // pixels, as typed
};

// One key of the section Properties in setting.ini.
struct KeyWrite {
    QString Key;
    QString Value;
};

struct RecordWrite {
    int Record = 0;
    ConfigArray Values;
};

// The steps of a save, in this order. All records are written to `config` in one step.
struct SettingPlan {
    KeyWrite First;
    std::vector<RecordWrite> Records;
    std::optional<bool> Autostart; // empty if it does not change
    std::vector<KeyWrite> Last;
};

// The result of a save.
struct SettingOutcome {
    bool Written = false;               // `config` is written, so the panel has to be reloaded
    std::vector<FileError> Failures;    // in writing `config` and setting.ini
    std::optional<FileError> Autostart; // why autostart could not be changed

    bool Complete() const { return Written && Failures.empty() && !Autostart; }
};

// Switches autostart on (true) or off: whether the program starts with the desktop session.
using AutostartSwitch = std::function<FileResult(bool)>;

// Reads the form from the store. Values whose record is missing in `config` come from the state.
SettingForm ReadSettingForm(const ConfigFile& config, const IniText& settings, const AppState& state);

// Decides what a save of the form has to write. `autostartAtLoad`: whether autostart is on now.
SettingPlan PlanSettings(const SettingForm& form, bool autostartAtLoad);

// Carries out the plan. If `config` cannot be written, the first key gets its former value back and the
// remaining steps are skipped; after any other failure they are still done. If autostart cannot be changed,
// its former value is written back to record 3.
SettingOutcome WriteSettings(const SettingPlan& plan, const QString& appFolder,
                             const AutostartSwitch& setAutostart);

} // namespace paneda
