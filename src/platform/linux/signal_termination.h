#pragma once

#include "platform/termination.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace paneda {

// The signals TERM, INT and HUP. The first one of each kind is a request; the second one ends the process, so
// that a program that hangs can be ended. A signal that was ignored when the program started stays ignored
// (nohup). Started programs inherit none of this. At most one object in a process.
class SignalTermination : public Termination {
public:
    SignalTermination() = default;
    ~SignalTermination() override;
    Q_DISABLE_COPY_MOVE(SignalTermination)

    void OnRequest(std::function<void()> end) override;

private:
    void ReadPipe();

    QObject context_;
    int readEnd_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::function<void()> end_;
};

} // namespace paneda
