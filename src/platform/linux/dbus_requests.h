#pragma once

#include "platform/outside_request.h"

#include <QObject>

namespace paneda {

// Requests over the session bus: method Execute(text) of the interface local.paneda.Launcher on the object
// /Panel, at the name local.paneda.Launcher. Of several instances the first one has the name; when it ends
// the next one gets it.
class DBusRequests : public QObject, public OutsideRequest {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "local.paneda.Launcher")

public:
    ~DBusRequests() override;

    bool Listen(std::function<void(const QString& text)> execute) override;

    Q_SCRIPTABLE void Execute(const QString& text);

private:
    bool listens_ = false;
    std::function<void(const QString&)> execute_;
};

} // namespace paneda
