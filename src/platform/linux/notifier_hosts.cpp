#include "platform/linux/notifier_hosts.h"

#include "platform/linux/session_bus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace paneda {

namespace {

const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");
// The program waits for the first answer, because it decides what kind of icon is made. No answer means no
// hosts.
constexpr int kFirstAnswer = 1'000; // ms

QDBusMessage HostQuestion() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        kWatcher, kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setArguments({kWatcher, QStringLiteral("IsStatusNotifierHostRegistered")});
    question.setAutoStartService(false);
    return question;
}

bool IsYes(const QDBusPendingReply<QDBusVariant>& reply) {
    return reply.isValid() && reply.value().variant().toBool();
}

} // namespace

NotifierHosts::NotifierHosts() : bus_(SessionBus()) {
    if (!bus_)
        return;
    owner_ = std::make_unique<QDBusServiceWatcher>(kWatcher, *bus_);
    connect(owner_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this, &NotifierHosts::Ask);
    for (const char* event : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        bus_->connect(kWatcher, kPath, kWatcher, QString::fromLatin1(event), this, SLOT(Ask()));
    if (!bus_->interface()->isServiceRegistered(kWatcher))
        return;
    QDBusPendingReply<QDBusVariant> reply = bus_->asyncCall(HostQuestion(), kFirstAnswer);
    reply.waitForFinished();
    isThere_ = IsYes(reply);
}

void NotifierHosts::Ask() {
    // If the watcher has ended, the answer is an error.
    auto* call = new QDBusPendingCallWatcher(bus_->asyncCall(HostQuestion()), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        Become(IsYes(*call));
    });
}

void NotifierHosts::Become(bool isThere) {
    if (isThere == isThere_)
        return;
    isThere_ = isThere;
    Q_EMIT Changed();
}

} // namespace paneda
