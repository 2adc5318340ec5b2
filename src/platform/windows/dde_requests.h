#pragma once

#include "platform/outside_request.h"

#include <QByteArray>
#include <QObject>

#include <windows.h>

#include <ddeml.h>

namespace paneda {

// Requests by DDE: service "paneda", topic "Panel", execute. If several copies of the program run, the first
// one answers, and the next one does when the first one has ended. Each copy also answers to the service
// "paneda-" and its InstanceId, for second starts of the same executable. At most one object in a process.
class DdeRequests : public OutsideRequest {
public:
    DdeRequests() = default;
    ~DdeRequests() override;
    Q_DISABLE_COPY_MOVE(DdeRequests)

    bool Listen(const QString& executablePath, std::function<void(const QString& text)> execute) override;
    void Stop() override;
    bool Send(const QString& executablePath) override;

private:
    static HDDEDATA CALLBACK Callback(UINT type, UINT format, HCONV conversation, HSZ first, HSZ second,
                                      HDDEDATA data, ULONG_PTR, ULONG_PTR);
    bool HasTurn();
    bool AnswersTo(HSZ topic, HSZ service);
    void Execute(HDDEDATA command);

    QObject context_;
    DWORD instance_ = 0; // 0 while it does not listen
    HSZ service_ = nullptr;
    HSZ ownService_ = nullptr;
    HSZ topic_ = nullptr;
    HANDLE turn_ = nullptr;
    bool hasTurn_ = false;
    std::function<void(const QString&)> execute_;
};

// The text of a command up to its first NUL. Old clients send single bytes, others UTF-16. Since a command
// begins with an ASCII character, its second byte is 0 only in UTF-16.
QString DdeCommandText(const QByteArray& bytes);

} // namespace paneda
