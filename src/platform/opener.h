#pragma once

#include "core/files/drive_map.h"
#include "core/panel/launch.h"

namespace paneda {

// How stored paths of a request become host paths.
struct LaunchPaths {
    DriveMap Drives;
    QString AppPath; // stored form
};

// Starts programs and opens files, folders and addresses the desktop's way.
class Opener {
public:
    virtual ~Opener() = default;

    // Begins what the request asks for and returns at once. Nothing comes back: where something cannot be
    // found or started, the desktop says so to the user, by a notification on Linux and by the shell's own
    // message on Windows. Neither keeps the panel waiting for an answer. Started programs run on when the
    // panel ends and leave no zombie.
    virtual void Open(const LaunchRequest& request, const LaunchPaths& paths) = 0;
};

} // namespace paneda
