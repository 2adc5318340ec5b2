#include "platform/linux/session_bus.h"

#include <QFileInfo>

namespace paneda {

namespace {

bool HasAddress() {
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/bus"));
}

} // namespace

std::optional<QDBusConnection> SessionBus() {
    if (!HasAddress())
        return std::nullopt;
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

} // namespace paneda
