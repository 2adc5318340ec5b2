#pragma once

#include "core/files/file_io.h"
#include "core/files/ini_text.h"
#include "core/settings/app_state.h"
#include "core/text/ranges.h"

#include <vector>

namespace paneda {

enum class BrowserChoice { Default, Explorer, Firefox, Other };

// How many pictures there are for the tray icon. They are numbered from 1.
inline constexpr int kTrayIconCount = range::kTrayIcon.Highest;

// What the dialog of the advanced settings shows.
struct AdvanceForm {
    BrowserChoice Browser = BrowserChoice::Default;
    QString OtherBrowser;        // as typed
    bool OffersExplorer = false; // whether Internet Explorer is offered
    bool HideOnStartup = false;
    int TrayIcon = 1; // 1 to kTrayIconCount
};

// Reads the form from the state's browser and the keys of setting.ini. If `runsWindowsPrograms` is false,
// Internet Explorer is offered only if it is the stored browser.
AdvanceForm ReadAdvanceForm(const IniText& settings, const AppState& state, bool runsWindowsPrograms);

// The text that is stored for the form's browser.
QString BrowserText(const AdvanceForm& form);

// Writes the form to setting.ini. The browser also goes into the state and is used from now on; the other
// settings take effect at the next start. Returns what could not be written.
std::vector<FileError> WriteAdvanceForm(const AdvanceForm& form, AppState& state);

} // namespace paneda
