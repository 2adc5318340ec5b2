#pragma once

#include "platform/compositor.h"
#include "platform/drive_space.h"
#include "platform/file_icons.h"
#include "platform/instance_lock.h"
#include "platform/opener.h"
#include "platform/volumes.h"

#include <memory>

namespace paneda {

// All that the desktop gives, made once by the program's main function.
struct Platform {
    std::unique_ptr<Opener> Launcher;
    std::unique_ptr<Volumes> Drives;
    std::unique_ptr<InstanceLock> Instance;
    std::unique_ptr<FileIcons> Icons;
    std::unique_ptr<DriveSpace> Space;
    std::unique_ptr<Compositor> Blending;
};

// The one of the system that the program is built for.
Platform MakePlatform();

} // namespace paneda
