#include "platform/linux/linux_tray_hosts.h"

namespace paneda {

TrayHosts::Kind LinuxTrayHosts::Present() {
    Begin();
    const bool notifies = notifiers_->IsThere();
    const bool embeds = embedders_->IsThere();
    if (chosen_ == Kind::None)
        chosen_ = notifies ? Kind::Menus : embeds ? Kind::Presses : Kind::None;
    const bool isThere = chosen_ == Kind::Menus ? notifies : embeds;
    return isThere ? chosen_ : Kind::None;
}

void LinuxTrayHosts::Watch(std::function<void()> changed) {
    changed_ = std::move(changed);
    Begin();
}

void LinuxTrayHosts::Begin() {
    if (notifiers_)
        return;
    notifiers_ = std::make_unique<NotifierHosts>();
    embedders_ = std::make_unique<EmbedHosts>();
    QObject::connect(notifiers_.get(), &NotifierHosts::Changed, &context_, [this] { Tell(); });
    QObject::connect(embedders_.get(), &EmbedHosts::Changed, &context_, [this] { Tell(); });
}

void LinuxTrayHosts::Tell() {
    // A copy, because the call may end the watch and delete the original.
    const std::function<void()> changed = changed_;
    if (changed)
        changed();
}

} // namespace paneda
