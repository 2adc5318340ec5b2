#pragma once

#include "core/files/file_io.h"

#include <QString>

namespace paneda {

// Starting the program with the user's session. There is one entry for all folders that the program lies in;
// the last one to be switched on has it.
class Autostart {
public:
    virtual ~Autostart() = default;

    // Makes or removes the entry. An entry that is there and was not made by this program stays, and is a
    // failure; none to remove is no failure.
    virtual FileResult Set(bool on, const QString& executablePath) = 0;

    // Whether the session will start this executable.
    virtual bool IsSet(const QString& executablePath) const = 0;
};

} // namespace paneda
