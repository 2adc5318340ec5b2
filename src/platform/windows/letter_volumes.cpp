#include "platform/windows/letter_volumes.h"

#include <dbt.h>

#include <utility>

namespace paneda {

// Windows sends the arrival and removal of volumes to every top-level window.
void LetterVolumes::Watch(std::function<void()> changed) {
    window_.reset();
    if (!changed)
        return;
    const auto handle = [changed = std::move(changed)](UINT message, WPARAM wParam,
                                                       LPARAM) -> std::optional<LRESULT> {
        if (message == WM_DEVICECHANGE && (wParam == DBT_DEVICEARRIVAL || wParam == DBT_DEVICEREMOVECOMPLETE))
            changed();
        return std::nullopt;
    };
    window_ = std::make_unique<MessageWindow>(MessageWindow::Reach::Everyone, handle);
}

} // namespace paneda
