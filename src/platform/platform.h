#pragma once

#include "platform/autostart.h"
#include "platform/compositor.h"
#include "platform/drive_space.h"
#include "platform/file_icons.h"
#include "platform/foreground.h"
#include "platform/hotkey.h"
#include "platform/instance_lock.h"
#include "platform/opener.h"
#include "platform/outside_request.h"
#include "platform/pointer.h"
#include "platform/sound_player.h"
#include "platform/termination.h"
#include "platform/tray_hosts.h"
#include "platform/volumes.h"
#include "platform/work_areas.h"

#include <QByteArray>

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
    std::unique_ptr<Hotkey> Keys;
    std::unique_ptr<Pointer> Mouse;
    std::unique_ptr<Foreground> Front;
    std::unique_ptr<TrayHosts> Trays;
    std::unique_ptr<WorkAreas> Areas;
    std::unique_ptr<OutsideRequest> Requests;
    std::unique_ptr<Autostart> Session;
    std::unique_ptr<SoundPlayer> Sounds;
    std::unique_ptr<Termination> Ending;
};

// The one of the system that the program is built for.
Platform MakePlatform();

// The name of the toolkit's platform that suits this desktop best; empty for the toolkit's own choice. To be
// asked before the application object is made.
QByteArray PreferredToolkitPlatform();

} // namespace paneda
