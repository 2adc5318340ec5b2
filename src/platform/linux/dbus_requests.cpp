#include "platform/linux/dbus_requests.h"

#include "platform/linux/session_bus.h"

#include <QDBusMessage>

namespace paneda {

namespace {

const QString kName = QStringLiteral("local.paneda.Launcher");
const QString kPath = QStringLiteral("/Panel");

// Sent and not waited for: an answer that failed would change nothing.
void CallBus(const QDBusConnection& bus, const QString& method, const QVariantList& arguments) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), method);
    call.setArguments(arguments);
    bus.send(call);
}

} // namespace

DBusRequests::~DBusRequests() {
    if (!listens_)
        return;
    if (std::optional<QDBusConnection> bus = SessionBus()) {
        CallBus(*bus, QStringLiteral("ReleaseName"), {kName});
        bus->unregisterObject(kPath);
    }
}

bool DBusRequests::Listen(std::function<void(const QString& text)> execute) {
    execute_ = std::move(execute);
    if (listens_)
        return true;
    std::optional<QDBusConnection> bus = SessionBus();
    if (!bus || !bus->registerObject(kPath, this, QDBusConnection::ExportScriptableInvokables))
        return false;
    // No flags: wait in the queue for a name that is taken, and take it from nobody.
    CallBus(*bus, QStringLiteral("RequestName"), {kName, 0U});
    listens_ = true;
    return true;
}

void DBusRequests::Execute(const QString& text) {
    // Later, so that the sender has its answer before anything is shown.
    QMetaObject::invokeMethod(
        this, [this, text] { execute_(text); }, Qt::QueuedConnection);
}

} // namespace paneda
