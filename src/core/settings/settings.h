#pragma once

#include "core/files/file_io.h"
#include "core/files/ini_text.h"
#include "core/settings/app_state.h"

#include <QString>

namespace paneda {

// Keys of setting.ini that more than one place reads or writes.
namespace setting {
inline constexpr QStringView kProperties = u"Properties";
inline constexpr QStringView kTree = u"Tree";
inline constexpr QStringView kNote = u"Note";
inline constexpr QStringView kSystray = u"Systray";
inline constexpr QStringView kCategory = u"category";
inline constexpr QStringView kDriveOfProgram = u"my computer drive paneda";
inline constexpr QStringView kHideOnStartup = u"hide on startup";
inline constexpr QStringView kSystemTrayIcon = u"system tray icon";
inline constexpr QStringView kMouseShowCenter = u"mouse click show center";
inline constexpr QStringView kHotkeyShowCenter = u"hotkey show center";
inline constexpr QStringView kOpacityPercent = u"opacity percent";
inline constexpr QStringView kWindowState = u"window state";
} // namespace setting

// Fills the state from the text of setting.ini. A missing key takes its default; numbers are read by their
// leading number and held to their limits. The values "at load" are set to what was read.
void ReadSettings(const IniText& settings, AppState& state);

// Writes one key of setting.ini below the program's folder.
FileResult WriteSetting(const QString& appFolder, QStringView section, QStringView key, const QString& value);

// What is written at exit besides the panel's place: opacities and the note's window state where they changed
// since the load, the selection, and the tree that each tree category shows. Results are not looked at.
void SaveSettingsAtExit(const AppState& state);

} // namespace paneda
