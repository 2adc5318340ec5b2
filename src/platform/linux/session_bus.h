#pragma once

#include <QDBusConnection>

#include <optional>

namespace paneda {

// The session's message bus; nothing if there is none. Never starts a bus, because that can take long.
std::optional<QDBusConnection> SessionBus();

} // namespace paneda
