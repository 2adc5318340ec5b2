#pragma once

#include "core/files/config_file.h"
#include "core/settings/app_state.h"

#include <vector>

namespace paneda {

// Record numbers of the file `config`.
enum ConfigRecordNumber : int {
    kRecordDriveTable = 1,    // 27 small integers, 1 shows the drive; subscript 0 unused
    kRecordPanelPlace = 2,    // two reals in twips, top first
    kRecordAutostart = 3,     // small integer 0 or 1
    kRecordButtonsPerRow = 4, // real, units
    kRecordSkinName = 5,
    kRecordHideAfterLaunch = 6,
    kRecordMouseTriggerEnabled = 7,
    kRecordMouseTriggerMode = 8, // small integer: 1 click, 2 double click or hold
    kRecordHotkeyEnabled = 9,
    kRecordHotkeyCtrl = 10,
    kRecordHotkeyAlt = 11,
    kRecordHotkeyShift = 12,
    kRecordHotkeyWin = 13,
    kRecordHotkeyKey = 14, // small integer, virtual key
    kRecordUserName = 15,
    kRecordShowFeed = 16,   // kept, no effect
    kRecordFeedHeight = 17, // real, pixels; kept, no effect
    kRecordUserId = 18,
};

// Fills the state from the records, giving each missing one of 4 to 18 its default; a file of no records also
// gets 1 to 3. A record 1 to 3 that cannot be read counts as its default and stays as it is. Changes the
// records in memory alone.
void ReadConfigRecords(ConfigFile& file, AppState& state);

// Reads `config` below state.AppFolder and lets it grow its missing records. When it cannot be read the state
// holds the defaults and the file is left alone.
std::vector<FileError> LoadConfig(AppState& state);

// Writes the panel's place into record 2.
FileResult SavePanelPlace(const AppState& state);

} // namespace paneda
