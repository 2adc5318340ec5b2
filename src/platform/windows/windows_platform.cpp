#include "platform/platform.h"
#include "platform/threaded_player.h"
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
#include "platform/windows/taskbar_tray_hosts.h"
#include "platform/windows/windows_foreground.h"
#include "platform/windows/windows_pointer.h"
#include "platform/windows/windows_volume_space.h"

namespace paneda {

Platform MakePlatform() {
    Platform platform;
    platform.Launcher = std::make_unique<ShellOpener>();
    platform.Drives = std::make_unique<LetterVolumes>();
    platform.Instance = std::make_unique<MutexLock>();
    platform.Icons = std::make_unique<ShellIcons>();
    platform.Space = std::make_unique<WindowsVolumeSpace>();
    platform.Blending = std::make_unique<LayeredCompositor>();
    platform.Keys = std::make_unique<MessageHotkey>();
    platform.Mouse = std::make_unique<WindowsPointer>();
    platform.Trays = std::make_unique<TaskbarTrayHosts>();
    platform.Areas = std::make_unique<ScreenWorkAreas>();
    platform.Front = std::make_unique<WindowsForeground>();
    platform.Requests = std::make_unique<DdeRequests>();
    platform.Session = std::make_unique<RunKeyAutostart>();
    platform.Sounds = std::make_unique<ThreadedPlayer>(MakeSoundWorker<MciWorker>);
    platform.Ending = std::make_unique<SessionTermination>();
    return platform;
}

QByteArray PreferredToolkitPlatform() {
    return {};
}

} // namespace paneda
