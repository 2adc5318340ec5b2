#pragma once

#include <QString>

namespace paneda {

// Conversions between the three forms of a stored path: absolute, absolute without drive, relative to the
// program's folder. Pure text functions over the stored form. `app` is the program's folder in the stored
// form, without a trailing backslash unless it is a drive's root.

// Undoes "..\" alone: everything up to its last occurrence is replaced by as many levels of `app` as it
// occurs. A path without "..\" comes back as it stands.
QString ResolveRelativePath(const QString& path, const QString& app);

// The absolute form of any stored form. Empty for a path of blanks.
QString ToAbsolutePath(const QString& path, const QString& app);

// The form relative to `app`; the path itself when it lies on another drive. Exact in case, normalises
// nothing.
QString ToRelativePath(const QString& path, const QString& app);

// The absolute form without its drive, "\Tools\x.exe".
QString ToPathWithoutDrive(const QString& path, const QString& app);

} // namespace paneda
