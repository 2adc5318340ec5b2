#pragma once

#include "core/files/config_file.h"
#include "core/settings/app_state.h"
#include "core/text/ranges.h"

#include <vector>

namespace paneda {

// Record numbers of the file `config`.
enum ConfigRecordNumber : int {
    kRecordDriveTable = 1,    // 27 small integers, 1 shows the drive; element 0 is unused, 1 is A, 26 is Z
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
    kRecordHotkeyKey = 14, // small integer, virtual key code; 0 for no key
    kRecordUserName = 15,
    kRecordShowFeed = 16,   // stored, without effect
    kRecordFeedHeight = 17, // real, pixels; stored, without effect
    kRecordUserId = 18,
};

// The number of a record, held to its range; the fallback for what is no finite number.
double HeldNumber(double number, const Range<double>& range, double fallback);

// Fills the state from the records. Numbers are held to the ranges of core/text/ranges.h, names to
// kMaxIniValue characters; the records keep what they hold. Missing records 4 to 18 are added with their
// defaults; to an empty file 1 to 3 are added too. For a record 1 to 3 that cannot be read the state gets the
// default, and the record is left as it is. Only the records in memory are changed.
void ReadConfigRecords(ConfigFile& file, AppState& state);

// Reads `config` below state.AppFolder and writes its missing records. If the file cannot be read, the state
// gets the defaults and the file is not changed. Returns what could not be read or written.
std::vector<FileError> LoadConfig(AppState& state);

// Writes the panel's place from the state into record 2.
FileResult SavePanelPlace(const AppState& state);

// Writes the name of the skin to show into record 5.
FileResult SaveSkinName(const QString& appFolder, const QString& skinName);

} // namespace paneda
