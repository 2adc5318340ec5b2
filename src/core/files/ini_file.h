#pragma once

#include "core/files/file_io.h"
#include "core/files/ini_text.h"

namespace paneda {

// Bytes. A larger INI file reads as empty and is never written. The largest that belongs to a store, a
// skin.ini with all its comments, has a few thousand.
inline constexpr qint64 kMaxIniFile = 1024 * 1024;

// The text of an INI file. A file that is missing or cannot be read has no keys.
IniText ReadIniFile(const DiskPath& file);

// The same, but fails for a file that exists and cannot be read.
tl::expected<IniText, FileError> LoadIniFile(const DiskPath& file);

// One value of an INI file; `fallback` when it is missing or empty.
QString ReadIni(const QString& section, const QString& key, const DiskPath& file,
                const QString& fallback = {});

// Writes one value, making the file if it is missing. Fails for a file that exists and cannot be read, and
// for a value longer than kMaxIniValue; the file is then as it was.
FileResult WriteIni(const QString& section, const QString& key, const QString& value, const DiskPath& file);

} // namespace paneda
