#pragma once

#include "platform/autostart.h"
#include "platform/compositor.h"
#include "platform/downloader.h"
#include "platform/drive_space.h"
#include "platform/file_icons.h"
#include "platform/foreground.h"
#include "platform/hotkey.h"
#include "platform/instance_lock.h"
#include "platform/opener.h"
#include "platform/outside_request.h"
#include "platform/pointer.h"
#include "platform/sound_player.h"
#include "platform/source_places.h"
#include "platform/termination.h"
#include "platform/tray_hosts.h"
#include "platform/volumes.h"
#include "platform/work_areas.h"

#include <QByteArray>

#include <memory>

namespace paneda {

// All that the desktop gives, made once by the program's main function. A service has the name of its type,
// which therefore stands here with its namespace.
struct Platform {
    std::unique_ptr<paneda::Opener> Opener;
    std::unique_ptr<paneda::Volumes> Volumes;
    std::unique_ptr<paneda::InstanceLock> InstanceLock;
    std::unique_ptr<paneda::FileIcons> FileIcons;
    // Shared with threads that may wait for a dead disk longer than the window that asked.
    std::shared_ptr<const paneda::SourcePlaces> SourcePlaces;
    std::unique_ptr<paneda::DriveSpace> DriveSpace;
    std::unique_ptr<paneda::Compositor> Compositor;
    std::unique_ptr<paneda::Hotkey> Hotkey;
    std::unique_ptr<paneda::Pointer> Pointer;
    std::unique_ptr<paneda::Foreground> Foreground;
    std::unique_ptr<paneda::TrayHosts> TrayHosts;
    std::unique_ptr<paneda::WorkAreas> WorkAreas;
    std::unique_ptr<paneda::OutsideRequest> OutsideRequest;
    std::unique_ptr<paneda::Autostart> Autostart;
    std::unique_ptr<paneda::SoundPlayer> SoundPlayer;
    std::unique_ptr<paneda::Termination> Termination;
    std::unique_ptr<paneda::Downloader> Downloader;
    // Programs made for Windows can be started, which a store that comes from there may name.
    bool RunsWindowsPrograms = false;
};

// The one of the system that the program is built for.
Platform MakePlatform();

// The name of the toolkit's platform that suits this desktop best; empty for the toolkit's own choice. To be
// asked before the application object is made.
QByteArray PreferredToolkitPlatform();

} // namespace paneda
