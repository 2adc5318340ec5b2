#pragma once

#include "platform/opener.h"

#include <QString>

namespace paneda {

// Whether a target is a web address or the like: a scheme of two or more letters and ":", or "www.".
bool IsAddress(const QString& target);

// The target as the shell is to have it. A path without drive lies on the program's own one; a relative one
// lies in the program's folder if it is there, and is else for the shell to find. A path that is too long for
// the shell takes its short form where the volume has one. Addresses stay as they are; a text of blanks gives
// an empty one.
QString HostTarget(const QString& target, const LaunchPaths& paths);

// The file of a bare program name: in the search path, else as registered among the application paths. Empty
// when there is none.
QString FindProgram(const QString& name);

} // namespace paneda
