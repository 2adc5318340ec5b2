#pragma once

#include "core/files/file_io.h"
#include "core/files/ini_text.h"
#include "core/settings/app_state.h"

#include <vector>

namespace paneda {

enum class BrowserChoice { Default, Explorer, Firefox, Other };

// Numbers of tray icons, from 1.
inline constexpr int kTrayIconCount = 12;

// What the dialog of advanced settings shows.
struct AdvanceForm {
    BrowserChoice Browser = BrowserChoice::Default;
    QString OtherBrowser;        // as typed
    bool OffersExplorer = false; // Internet Explorer is among the choices
    bool HideOnStartup = false;
    int TrayIcon = 1; // 1 to kTrayIconCount
};

// The form of the state's browser and the keys of setting.ini. Where no program for Windows can be started,
// Internet Explorer is a choice only if it is the stored one.
AdvanceForm ReadAdvanceForm(const IniText& settings, const AppState& state, bool runsWindowsPrograms);

// The text that is stored for the form's browser.
QString BrowserText(const AdvanceForm& form);

// Writes the form and puts the browser into the state, where it counts at once; the rest counts at the next
// start. Returns what failed.
std::vector<FileError> WriteAdvanceForm(const AdvanceForm& form, AppState& state);

} // namespace paneda
