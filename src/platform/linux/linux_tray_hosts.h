#pragma once

#include "platform/linux/embed_hosts.h"
#include "platform/linux/notifier_hosts.h"
#include "platform/tray_hosts.h"

#include <QObject>

#include <memory>

namespace paneda {

// Hosts of status notifiers; if there are none, hosts of embedded icons.
//
// Qt decides once, for its first icon, by which of the two it shows icons. So the kind that was found first
// is the only one that counts from then on, and no icon may be made before one was found.
class LinuxTrayHosts : public TrayHosts {
public:
    Kind Present() override;
    void Watch(std::function<void()> changed) override;

private:
    void Begin();
    void Tell();

    QObject context_;
    std::function<void()> changed_;
    std::unique_ptr<NotifierHosts> notifiers_;
    std::unique_ptr<EmbedHosts> embedders_;
    Kind chosen_ = Kind::None;
};

} // namespace paneda
