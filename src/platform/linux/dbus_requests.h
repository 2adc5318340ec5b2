#pragma once

#include "platform/outside_request.h"

#include <QObject>

namespace paneda {

// Requests over the session bus: method Execute(text) of the interface local.paneda.Launcher on the object
// /Panel, at the name local.paneda.Launcher. If several copies of the program run, the first one has that
// name, and the next one gets it when the first one ends. Each copy also has a name of its own, ".Instance_"
// and the InstanceId behind that name, for second starts of the same executable.
class DBusRequests : public QObject, public OutsideRequest {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "local.paneda.Launcher")

public:
    ~DBusRequests() override;

    bool Listen(const QString& executablePath, std::function<void(const QString& text)> execute) override;
    void Stop() override;
    bool Send(const QString& executablePath) override;

    Q_SCRIPTABLE void Execute(const QString& text);

private:
    QString ownName_; // empty while it does not listen
    std::function<void(const QString&)> execute_;
};

} // namespace paneda
