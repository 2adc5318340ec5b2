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

    // Begins what the request asks for and returns at once. Nothing comes back: what cannot be started does
    // not start, and where a shortcut leads nowhere the desktop tells the user. Started programs live on
    // their own and leave no zombie.
    virtual void Open(const LaunchRequest& request, const LaunchPaths& paths) = 0;
};

} // namespace paneda
