#pragma once

#include <QDBusConnection>

#include <optional>

namespace paneda {

// The session's message bus. Nothing when there is none; no bus is started for the question, which could take
// long.
std::optional<QDBusConnection> SessionBus();

} // namespace paneda
