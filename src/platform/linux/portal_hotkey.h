#pragma once

#include "platform/hotkey.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace paneda {

// A hotkey by the desktop's portal (org.freedesktop.portal.GlobalShortcuts): a session with one shortcut in
// it. Each step is a request that the desktop answers later; on a desktop without the portal the first one
// fails. To register the same combination again keeps the session, because the desktop may ask its user about
// a new one.
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
    void StartPortal();
    void FindOwner();
    void CreateSession();
    void BindShortcut();
    // Calls a method of the portal, with `options` as its last argument. The result arrives later, as a
    // signal to `slot`.
    void Ask(const QString& method, QVariantList arguments, QVariantMap options, const char* slot);
    // The answer to a call of an earlier registration is dropped.
    void Call(const QDBusMessage& call, std::function<void(const QDBusMessage&)> answered);
    // False for an error, after which there is no portal for the program.
    bool HasPortal(const QDBusMessage& reply);
    void EndRequest();
    void StopListening();

    std::optional<QDBusConnection> bus_;
    Means means_ = Means::Portal;
    Answer state_ = Answer::Refused;
    QString trigger_;
    std::function<void()> pressed_;
    int attempt_ = 0; // changes with each end of a registration
    QString owner_;   // name of the portal's process on the bus
    QString request_; // path of the request that has no result yet; empty for none
    const char* requestSlot_ = nullptr;
    QString session_; // path of the session; empty for none
    int lastToken_ = 0;
};

// A key combination in the desktop's notation, such as "CTRL+ALT+space". Empty for a key that is not in the
// key table.
QString ShortcutText(int modifiers, int virtualKey);

} // namespace paneda
