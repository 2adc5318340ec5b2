#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>
#include <optional>

namespace paneda {

// Whether a program on the session bus shows status notifiers. True if the bus has the notifiers' watcher and
// the watcher reports a host.
class NotifierHosts : public QObject {
    Q_OBJECT

public:
    NotifierHosts();

    bool IsThere() const { return isThere_; }

Q_SIGNALS:
    void Changed();

private Q_SLOTS:
    void Ask();

private:
    void Become(bool isThere);

    std::optional<QDBusConnection> bus_;
    std::unique_ptr<QDBusServiceWatcher> owner_;
    bool isThere_ = false;
};

} // namespace paneda
