#include "platform/linux/portal_hotkey.h"

#include "core/panel/triggers.h"
#include "platform/linux/key_codes.h"
#include "platform/linux/session_bus.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace paneda {

// One entry of the list of shortcuts, of the signature (sa{sv}).
struct PortalShortcut {
    QString Id;
    QVariantMap Options;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
    argument.beginStructure();
    argument << shortcut.Id << shortcut.Options;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
    argument.beginStructure();
    argument >> shortcut.Id >> shortcut.Options;
    argument.endStructure();
    return argument;
}

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");
const QString kSession = QStringLiteral("org.freedesktop.portal.Session");
const QString kResponse = QStringLiteral("Response");
const QString kClosed = QStringLiteral("Closed");
const QString kActivated = QStringLiteral("Activated");
const QString kShortcutId = QStringLiteral("show");

QDBusMessage BusCall(const QString& method, const QVariantList& arguments) {
    const QString name = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage call =
        QDBusMessage::createMethodCall(name, QStringLiteral("/org/freedesktop/DBus"), name, method);
    call.setArguments(arguments);
    return call;
}

QDBusMessage CloseCall(const QString& owner, const QString& path, const QString& interface) {
    return QDBusMessage::createMethodCall(owner, path, interface, QStringLiteral("Close"));
}

QVariant ShortcutList(const QString& trigger) {
    const PortalShortcut shortcut{kShortcutId,
                                  {{QStringLiteral("description"), QStringLiteral("Show or hide the panel")},
                                   {QStringLiteral("preferred_trigger"), trigger}}};
    return QVariant::fromValue(QList<PortalShortcut>{shortcut});
}

} // namespace

QString ShortcutText(int modifiers, int virtualKey) {
    const QString key = NameOfKey(virtualKey).Name;
    if (key.isEmpty())
        return {};
    QStringList parts;
    if (modifiers & kHotkeyCtrl)
        parts.append(QStringLiteral("CTRL"));
    if (modifiers & kHotkeyAlt)
        parts.append(QStringLiteral("ALT"));
    if (modifiers & kHotkeyShift)
        parts.append(QStringLiteral("SHIFT"));
    if (modifiers & kHotkeyWin)
        parts.append(QStringLiteral("LOGO"));
    parts.append(key);
    return parts.join(u'+');
}

PortalHotkey::~PortalHotkey() {
    Unregister();
}

Hotkey::Answer PortalHotkey::Register(int modifiers, int virtualKey, std::function<void()> pressed) {
    const QString trigger = ShortcutText(modifiers, virtualKey);
    if (trigger == trigger_ && (state_ == Answer::Registered || state_ == Answer::Asked)) {
        pressed_ = std::move(pressed);
        return state_;
    }
    Unregister();
    if (trigger.isEmpty())
        return state_ = Answer::NoSuchKey;
    bus_ = SessionBus();
    if (!bus_ || means_ == Means::None) {
        means_ = Means::None;
        return state_;
    }
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    trigger_ = trigger;
    pressed_ = std::move(pressed);
    state_ = Answer::Asked;
    StartPortal();
    return state_;
}

void PortalHotkey::Unregister() {
    ++attempt_;
    EndRequest();
    state_ = Answer::Refused;
    trigger_.clear();
    if (session_.isEmpty())
        return;
    bus_->disconnect(owner_, kPath, kShortcuts, kActivated, this,
                     SLOT(ShortcutActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    bus_->disconnect(owner_, session_, kSession, kClosed, this, SLOT(SessionClosed()));
    bus_->send(CloseCall(owner_, session_, kSession));
    session_.clear();
}

void PortalHotkey::StartPortal() {
    constexpr quint32 kNoFlags = 0;
    Call(BusCall(QStringLiteral("StartServiceByName"), {kService, kNoFlags}),
         // The answer says nothing: a portal that somebody else has started may be one that the bus cannot
         // start.
         [this](const QDBusMessage&) { FindOwner(); });
}

// Signals are taken from this process alone: any program of the session can send some that look the same.
void PortalHotkey::FindOwner() {
    Call(BusCall(QStringLiteral("GetNameOwner"), {kService}), [this](const QDBusMessage& reply) {
        if (!HasPortal(reply))
            return;
        owner_ = reply.arguments().value(0).toString();
        CreateSession();
    });
}

void PortalHotkey::CreateSession() {
    const QString token = QStringLiteral("paneda_session_%1").arg(QCoreApplication::applicationPid());
    Ask(QStringLiteral("CreateSession"), {}, {{QStringLiteral("session_handle_token"), token}},
        SLOT(SessionAnswered(uint, QVariantMap)));
}

void PortalHotkey::SessionAnswered(uint response, const QVariantMap& results) {
    StopListening();
    session_ = results.value(QStringLiteral("session_handle")).toString();
    if (response != 0 || session_.isEmpty()) {
        Unregister();
        return;
    }
    bus_->connect(owner_, kPath, kShortcuts, kActivated, this,
                  SLOT(ShortcutActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    bus_->connect(owner_, session_, kSession, kClosed, this, SLOT(SessionClosed()));
    BindShortcut();
}

void PortalHotkey::BindShortcut() {
    const QString noParentWindow;
    Ask(QStringLiteral("BindShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(session_)), ShortcutList(trigger_), noParentWindow}, {},
        SLOT(BindAnswered(uint, QVariantMap)));
}

void PortalHotkey::BindAnswered(uint response, const QVariantMap&) {
    StopListening();
    if (response == 0)
        state_ = Answer::Registered;
    else
        Unregister();
}

void PortalHotkey::SessionClosed() {
    Unregister();
}

void PortalHotkey::ShortcutActivated(const QDBusObjectPath& session, const QString& shortcut, qulonglong,
                                     const QVariantMap&) {
    if (session.path() != session_ || shortcut != kShortcutId)
        return;
    const std::function<void()> pressed = pressed_;
    pressed();
}

void PortalHotkey::Ask(const QString& method, QVariantList arguments, QVariantMap options, const char* slot) {
    const QString token =
        QStringLiteral("paneda_%1_%2").arg(QCoreApplication::applicationPid()).arg(++lastToken_);
    options.insert(QStringLiteral("handle_token"), token);
    arguments.append(options);
    // The result may arrive before the reply to this call. So its path is computed in advance, by the
    // rule that the portals document.
    const QString sender = bus_->baseService().mid(1).replace(u'.', u'_');
    request_ = QStringLiteral("%1/request/%2/%3").arg(kPath, sender, token);
    requestSlot_ = slot;
    bus_->connect(owner_, request_, kRequest, kResponse, this, slot);
    QDBusMessage call = QDBusMessage::createMethodCall(owner_, kPath, kShortcuts, method);
    call.setArguments(arguments);
    Call(call, [this](const QDBusMessage& reply) { HasPortal(reply); });
}

void PortalHotkey::Call(const QDBusMessage& call, std::function<void(const QDBusMessage&)> answered) {
    auto* watcher = new QDBusPendingCallWatcher(bus_->asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, attempt = attempt_, answered = std::move(answered)] {
                watcher->deleteLater();
                if (attempt == attempt_)
                    answered(watcher->reply());
            });
}

bool PortalHotkey::HasPortal(const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ErrorMessage)
        return true;
    // The desktop has no portal, or one without shortcuts.
    means_ = Means::None;
    Unregister();
    return false;
}

void PortalHotkey::EndRequest() {
    if (request_.isEmpty())
        return;
    bus_->send(CloseCall(owner_, request_, kRequest));
    StopListening();
}

void PortalHotkey::StopListening() {
    bus_->disconnect(owner_, request_, kRequest, kResponse, this, requestSlot_);
    request_.clear();
}

} // namespace paneda
