#pragma once

#include "platform/tray_hosts.h"
#include "platform/windows/message_window.h"

#include <memory>

namespace paneda {

// The notification area of the task bar, which says when it has been made, as it is when the shell starts
// later than this program or anew. Nothing says that it has gone.
class TaskbarTrayHosts : public TrayHosts {
public:
    Kind Present() override;
    void Watch(std::function<void()> changed) override;

private:
    std::unique_ptr<MessageWindow> window_;
    std::function<void()> changed_;
};

} // namespace paneda
