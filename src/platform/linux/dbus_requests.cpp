#include "platform/linux/dbus_requests.h"

#include "platform/instance_id.h"
#include "platform/linux/session_bus.h"

#include <QDBusMessage>

#include <utility>

namespace paneda {

namespace {

const QString kName = QStringLiteral("local.paneda.Launcher");
const QString kPath = QStringLiteral("/Panel");
constexpr int kAnswerWithin = 1000; // ms

QString OwnName(const QString& executablePath) {
    return kName + QStringLiteral(".Instance_") + InstanceId(executablePath);
}

// Does not wait for the answer, since nothing depends on it.
void CallBus(const QDBusConnection& bus, const QString& method, const QVariantList& arguments) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus"), method);
    call.setArguments(arguments);
    bus.send(call);
}

} // namespace

DBusRequests::~DBusRequests() {
    Stop();
}

void DBusRequests::Stop() {
    execute_ = {};
    const QString own = std::exchange(ownName_, {});
    if (own.isEmpty())
        return;
    if (std::optional<QDBusConnection> bus = SessionBus()) {
        for (const QString& name : {kName, own})
            CallBus(*bus, QStringLiteral("ReleaseName"), {name});
        bus->unregisterObject(kPath);
    }
}

bool DBusRequests::Listen(const QString& executablePath, std::function<void(const QString& text)> execute) {
    execute_ = std::move(execute);
    if (!ownName_.isEmpty())
        return true;
    std::optional<QDBusConnection> bus = SessionBus();
    if (!bus || !bus->registerObject(kPath, this, QDBusConnection::ExportScriptableInvokables))
        return false;
    ownName_ = OwnName(executablePath);
    // No flags: if another process has the name, wait in the queue for it.
    for (const QString& name : {kName, ownName_})
        CallBus(*bus, QStringLiteral("RequestName"), {name, 0U});
    return true;
}

bool DBusRequests::Send(const QString& executablePath) {
    const std::optional<QDBusConnection> bus = SessionBus();
    if (!bus)
        return false;
    QDBusMessage call =
        QDBusMessage::createMethodCall(OwnName(executablePath), kPath, kName, QStringLiteral("Execute"));
    call.setArguments({QString()});
    return bus->call(call, QDBus::Block, kAnswerWithin).type() == QDBusMessage::ReplyMessage;
}

void DBusRequests::Execute(const QString& text) {
    // Later, so that the sender gets its answer before the panel is shown.
    QMetaObject::invokeMethod(
        this,
        [this, text] {
            if (execute_)
                execute_(text);
        },
        Qt::QueuedConnection);
}

} // namespace paneda
