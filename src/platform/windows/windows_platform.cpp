#include "platform/patient_space.h"
#include "platform/platform.h"
#include "platform/threaded_player.h"
#include "platform/web_downloader.h"
#include "platform/windows/dde_requests.h"
#include "platform/windows/layered_compositor.h"
#include "platform/windows/letter_volumes.h"
#include "platform/windows/mci_worker.h"
#include "platform/windows/message_hotkey.h"
#include "platform/windows/mutex_lock.h"
#include "platform/windows/run_key_autostart.h"
#include "platform/windows/screen_work_areas.h"
#include "platform/windows/session_termination.h"
#include "platform/windows/shell_icons.h"
#include "platform/windows/shell_opener.h"
#include "platform/windows/shell_source_places.h"
#include "platform/windows/taskbar_tray_hosts.h"
#include "platform/windows/windows_foreground.h"
#include "platform/windows/windows_pointer.h"
#include "platform/windows/windows_volume_space.h"

namespace paneda {

Platform MakePlatform() {
    Platform platform;
    platform.Opener = std::make_unique<ShellOpener>();
    platform.Volumes = std::make_unique<LetterVolumes>();
    platform.InstanceLock = std::make_unique<MutexLock>();
    platform.FileIcons = std::make_unique<ShellIcons>();
    platform.SourcePlaces = std::make_unique<ShellSourcePlaces>();
    platform.DriveSpace = std::make_unique<PatientSpace>(AskVolumeSpace);
    platform.Compositor = std::make_unique<LayeredCompositor>();
    platform.Hotkey = std::make_unique<MessageHotkey>();
    platform.Pointer = std::make_unique<WindowsPointer>();
    platform.TrayHosts = std::make_unique<TaskbarTrayHosts>();
    platform.WorkAreas = std::make_unique<ScreenWorkAreas>();
    platform.Foreground = std::make_unique<WindowsForeground>();
    platform.OutsideRequest = std::make_unique<DdeRequests>();
    platform.Autostart = std::make_unique<RunKeyAutostart>();
    platform.SoundPlayer = std::make_unique<ThreadedPlayer>(MakeSoundWorker<MciWorker>);
    platform.Termination = std::make_unique<SessionTermination>();
    platform.Downloader = std::make_unique<WebDownloader>();
    platform.RunsWindowsPrograms = true;
    return platform;
}

QByteArray PreferredToolkitPlatform() {
    return {};
}

} // namespace paneda
