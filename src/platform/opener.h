#pragma once

#include "core/files/drive_map.h"
#include "core/panel/launch.h"

namespace paneda {

// What turns the stored paths of a request into host paths.
struct LaunchPaths {
    DriveMap Drives;
    QString AppPath; // stored form
};

// Starts programs and opens files, folders and addresses as the desktop does.
class Opener {
public:
    virtual ~Opener() = default;

    // Begins what the request asks for and returns at once, without a result: if something cannot be found or
    // started, the desktop tells the user, by a notification on Linux and by the shell's own message on
    // Windows. Neither makes the panel wait for an answer. Started programs keep running when the panel ends
    // and leave no zombie. The destructor waits half a second for starts that are not complete, and leaves
    // threads that take longer to EndProcess.
    virtual void Open(const LaunchRequest& request, const LaunchPaths& paths) = 0;
};

} // namespace paneda
