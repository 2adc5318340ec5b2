#pragma once

#include "platform/opener.h"

#include <QString>

namespace paneda {

// The target in the form that the shell needs. A path without a drive is on the program's drive. A relative
// path becomes a path in the program's folder if it exists there; else the shell has to find it. A path that
// is too long for the shell gets its short form if the volume has one. An address becomes one word, see
// AddressOfAnyScheme; the shell's own places ("shell:...") are no addresses and are not changed. A text of
// blanks, and an address that may not be opened, give an empty one.
QString HostTarget(const QString& target, const LaunchPaths& paths);

// The file of a bare program name: from the search path, else from the registered application paths. Empty if
// there is none.
QString FindProgram(const QString& name);

} // namespace paneda
