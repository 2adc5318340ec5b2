#include "platform/linux/dbus_requests.h"
#include "platform/linux/desktop_autostart.h"
#include "platform/linux/instance_mark.h"
#include "platform/linux/linux_foreground.h"
#include "platform/linux/linux_hotkey.h"
#include "platform/linux/linux_opener.h"
#include "platform/linux/linux_pointer.h"
#include "platform/linux/linux_source_places.h"
#include "platform/linux/linux_tray_hosts.h"
#include "platform/linux/linux_work_areas.h"
#include "platform/linux/mixer_worker.h"
#include "platform/linux/mounted_volumes.h"
#include "platform/linux/signal_termination.h"
#include "platform/linux/theme_icons.h"
#include "platform/linux/volume_space.h"
#include "platform/linux/x11_compositor.h"
#include "platform/patient_space.h"
#include "platform/platform.h"
#include "platform/threaded_player.h"
#include "platform/web_downloader.h"

namespace paneda {

Platform MakePlatform() {
    Platform platform;
    platform.Opener = std::make_unique<LinuxOpener>();
    platform.Volumes = std::make_unique<MountedVolumes>();
    platform.InstanceLock = std::make_unique<InstanceMark>();
    platform.FileIcons = std::make_unique<ThemeIcons>();
    platform.SourcePlaces = std::make_unique<LinuxSourcePlaces>();
    platform.DriveSpace = std::make_unique<PatientSpace>(AskVolumeSpace);
    platform.Compositor = std::make_unique<X11Compositor>();
    platform.Hotkey = MakeHotkey();
    platform.Pointer = std::make_unique<LinuxPointer>();
    platform.Foreground = std::make_unique<LinuxForeground>();
    platform.TrayHosts = std::make_unique<LinuxTrayHosts>();
    platform.WorkAreas = std::make_unique<LinuxWorkAreas>();
    platform.OutsideRequest = std::make_unique<DBusRequests>();
    platform.Autostart = std::make_unique<DesktopAutostart>();
    platform.SoundPlayer = std::make_unique<ThreadedPlayer>(MakeSoundWorker<MixerWorker>);
    platform.Termination = std::make_unique<SignalTermination>();
    platform.Downloader = std::make_unique<WebDownloader>();
    return platform;
}

// The panel needs X11 to place itself, grab a key and see the pointer; a Wayland desktop offers it through
// XWayland. A platform that the user has set in the environment is left as it is.
QByteArray PreferredToolkitPlatform() {
    const bool hasBoth =
        !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && !qEnvironmentVariableIsEmpty("DISPLAY");
    return hasBoth && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ? QByteArray("xcb") : QByteArray();
}

} // namespace paneda
