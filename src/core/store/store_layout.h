#pragma once

#include "core/files/file_io.h"

#include <QString>

#include <vector>

namespace paneda {

// Where the store's files lie below the program's folder (a host path). Fixed names are found in any case of
// letters.
QString SettingFolder(const QString& appFolder);
QString SettingIniFile(const QString& appFolder);
QString ConfigFilePath(const QString& appFolder);
QString CacheFolder(const QString& appFolder);
QString CacheFilePath(const QString& appFolder);

// Host path of a category's folder and of its Properties.ini.
QString CategoryFolder(const QString& appFolder, const QString& categoryName);
QString CategoryIniFile(const QString& appFolder, const QString& categoryName);

// The stored path that the program forms for an entry below its folder, by plain concatenation.
QString StoredPath(const QString& appPath, const QString& relative);

// Makes a new store if `Setting` is missing, and `Cache` if that is missing. `Setting2` is made only together
// with `Setting`. An empty `appFolder` makes nothing. Returns what could not be made; if that is the first
// folder, nothing more is tried.
std::vector<FileError> CreateMissingStore(const QString& appFolder);

} // namespace paneda
