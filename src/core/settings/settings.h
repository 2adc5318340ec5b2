#pragma once

#include "core/files/file_io.h"
#include "core/files/ini_text.h"
#include "core/settings/app_state.h"

#include <QString>

namespace paneda {

// Sections and keys of setting.ini that more than one place reads or writes.
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

// Fills the state from the text of setting.ini. A missing or empty key gives the default. Of a value that
// should be a number the digits at its start count; numbers are held to the ranges of
// core/text/ranges.h.
// The fields named AtLoad get the values that were read.
void ReadSettings(const IniText& settings, AppState& state);

// Writes one key of setting.ini in the program's folder (host path).
FileResult WriteSetting(const QString& appFolder, QStringView section, QStringView key, const QString& value);

// Writes what is kept at exit besides the panel's place: opacities and the note's window state if they have
// changed since the load, the selected category, and the tree that each tree category shows. Errors are
// ignored.
void SaveSettingsAtExit(const AppState& state);

} // namespace paneda
