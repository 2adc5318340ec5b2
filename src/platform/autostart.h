#pragma once

#include "core/files/file_io.h"

#include <QString>

namespace paneda {

// Starts the program with the user's session. The user has one entry for all copies of the program; it starts
// the copy that switched it on last.
class Autostart {
public:
    virtual ~Autostart() = default;

    // Makes or removes the entry. Fails, and changes nothing, if an entry of this name exists that this
    // program did not make. To remove an entry that does not exist is no failure.
    virtual FileResult Set(bool on, const QString& executablePath) = 0;

    // Whether the session will start this executable.
    virtual bool IsSet(const QString& executablePath) const = 0;
};

} // namespace paneda
