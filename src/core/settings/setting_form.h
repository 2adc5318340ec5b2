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
    QString ButtonsPerRow; // as typed; the number at its start counts
    bool HideAfterLaunch = false;
    bool MouseTriggerEnabled = false;
    bool MouseClick = false; // a single click is enough; else a double click or a hold
    bool MouseShowCenter = false;
    bool HotkeyEnabled = false;
    bool HotkeyCtrl = false;
    bool HotkeyAlt = false;
    bool HotkeyShift = false;
    bool HotkeyWin = false;
    int HotkeyKey = 0; // virtual key, 0 for none
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

// What a save does, in this order. `config` is replaced after its last record.
struct SettingPlan {
    KeyWrite First;
    std::vector<RecordWrite> Records;
    std::optional<bool> Autostart; // nothing when it stays as it was
    std::vector<KeyWrite> Last;
};

// What became of a save.
struct SettingOutcome {
    bool Written = false;               // the records are in `config`, and the panel has to be reloaded
    std::vector<FileError> Failures;    // of `config` and setting.ini
    std::optional<FileError> Autostart; // why the session could not be changed

    bool Complete() const { return Written && Failures.empty() && !Autostart; }
};

// Adds the program to what the desktop session starts (true), or removes it.
using AutostartSwitch = std::function<FileResult(bool)>;

// The form as the store has it. A record that `config` lacks is taken from the state.
SettingForm ReadSettingForm(const ConfigFile& config, const IniText& settings, const AppState& state);

SettingPlan PlanSettings(const SettingForm& form, bool autostartAtLoad);

// Carries the plan out. It ends when `config` cannot be written; after any other failure it goes on. When the
// session cannot be changed, record 3 gets its former value back.
SettingOutcome WriteSettings(const SettingPlan& plan, const QString& appFolder,
                             const AutostartSwitch& setAutostart);

} // namespace paneda
