#pragma once

#include "platform/tray_hosts.h"
#include "platform/windows/message_window.h"

#include <memory>

namespace paneda {

// The notification area of the task bar. The task bar announces itself when the shell starts later than this
// program, or starts again. Its end is not announced.
class TaskbarTrayHosts : public TrayHosts {
public:
    Kind Present() override;
    void Watch(std::function<void()> changed) override;

private:
    std::unique_ptr<MessageWindow> window_;
    std::function<void()> changed_;
};

} // namespace paneda
