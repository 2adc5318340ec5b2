#pragma once

#include "platform/hotkey.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QVariantMap>

#include <optional>

namespace paneda {

// A hotkey by the desktop's portal (org.freedesktop.portal.GlobalShortcuts): a session with one shortcut in
// it. Every step is asked for and answered later; a desktop without the portal ends it at the first one.
// Registering the same combination again keeps the session, since a new one may ask the user again.
class PortalHotkey : public QObject, public Hotkey {
    Q_OBJECT

public:
    ~PortalHotkey() override;

    Means Kind() const override { return means_; }
    Answer Register(int modifiers, int virtualKey, std::function<void()> pressed) override;
    void Unregister() override;
    Answer State() const override { return state_; }

private Q_SLOTS:
    void SessionAnswered(uint response, const QVariantMap& results);
    void BindAnswered(uint response, const QVariantMap& results);
    void SessionClosed();
    void ShortcutActivated(const QDBusObjectPath& session, const QString& shortcut, qulonglong time,
                           const QVariantMap& options);

private:
    void CreateSession();
    void BindShortcut();
    // Calls a method of the portal, with `options` as its last argument. Its real answer comes later, as a
    // signal to `slot`.
    void Ask(const QString& method, QVariantList arguments, QVariantMap options, const char* slot);
    void EndRequest();
    void StopListening();

    std::optional<QDBusConnection> bus_;
    Means means_ = Means::Portal;
    Answer state_ = Answer::Refused;
    QString trigger_;
    std::function<void()> pressed_;
    QString request_; // path of the request under way; empty for none
    const char* requestSlot_ = nullptr;
    QString session_; // path of the session; empty for none
    int lastToken_ = 0;
};

// A key combination in the desktop's notation, such as "CTRL+ALT+space". Empty for a key that is not in the
// key table.
QString ShortcutText(int modifiers, int virtualKey);

} // namespace paneda
