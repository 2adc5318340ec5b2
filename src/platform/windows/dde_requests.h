#pragma once

#include "platform/outside_request.h"

#include <QByteArray>
#include <QObject>

#include <windows.h>

#include <ddeml.h>

namespace paneda {

// Requests by DDE: service "paneda", topic "Panel", execute. Of several instances the first one answers; when
// it ends the next one does. One object to a process.
class DdeRequests : public OutsideRequest {
public:
    DdeRequests() = default;
    ~DdeRequests() override;
    Q_DISABLE_COPY_MOVE(DdeRequests)

    bool Listen(std::function<void(const QString& text)> execute) override;

private:
    static HDDEDATA CALLBACK Callback(UINT type, UINT format, HCONV conversation, HSZ first, HSZ second,
                                      HDDEDATA data, ULONG_PTR, ULONG_PTR);
    bool HasTurn();
    bool IsOwn(HSZ topic, HSZ service) const;
    void Execute(HDDEDATA command);

    QObject context_;
    DWORD instance_ = 0; // 0 while it does not listen
    HSZ service_ = nullptr;
    HSZ topic_ = nullptr;
    HANDLE turn_ = nullptr;
    bool hasTurn_ = false;
    std::function<void(const QString&)> execute_;
};

// A command up to its first NUL. Clients of old send single bytes. A command begins with a bracket or a
// letter, so that its second byte tells the one from the other.
QString DdeCommandText(const QByteArray& bytes);

} // namespace paneda
