#include "platform/windows/taskbar_tray_hosts.h"

namespace paneda {

TrayHosts::Kind TaskbarTrayHosts::Present() {
    return FindWindowW(L"Shell_TrayWnd", nullptr) ? Kind::Presses : Kind::None;
}

void TaskbarTrayHosts::Watch(std::function<void()> changed) {
    changed_ = std::move(changed);
    if (window_ || !changed_)
        return;
    const UINT taskbarCreated = RegisterWindowMessageW(L"TaskbarCreated");
    window_ = std::make_unique<MessageWindow>(
        MessageWindow::Reach::Everyone,
        [this, taskbarCreated](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
            if (message != taskbarCreated)
                return std::nullopt;
            // A copy, because the call may end the watch and delete the original.
            const std::function<void()> call = changed_;
            if (call)
                call();
            return 0;
        });
}

} // namespace paneda
