#include "platform/linux/session_notice.h"

#include "platform/linux/session_bus.h"

#include <QDBusMessage>
#include <QVariantMap>

namespace paneda {

namespace {

constexpr int kUsualTime = -1;
const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kTitle = QStringLiteral("Paneda Launcher");

// Notifications may hold markup.
QString AsBody(QString text) {
    return text.replace(u'&', QStringLiteral("&amp;"))
        .replace(u'<', QStringLiteral("&lt;"))
        .replace(u'>', QStringLiteral("&gt;"));
}

bool Notify(const QString& text, int wait) {
    const std::optional<QDBusConnection> bus = SessionBus();
    if (!bus)
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        kService, QStringLiteral("/org/freedesktop/Notifications"), kService, QStringLiteral("Notify"));
    call.setArguments({kTitle, 0U, QStringLiteral("dialog-error"), kTitle, AsBody(text), QStringList(),
                       QVariantMap(), kUsualTime});
    return bus->call(call, QDBus::Block, wait).type() == QDBusMessage::ReplyMessage;
}

} // namespace

void TellSession(const QString& text, int wait) {
    if (!Notify(text, wait))
        qWarning("%s", qUtf8Printable(text));
}

} // namespace paneda
