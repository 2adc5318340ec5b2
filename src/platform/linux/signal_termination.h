#pragma once

#include "platform/termination.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace paneda {

// The signals TERM, INT and HUP. Each asks once; the second one of a kind has the system's effect, so that a
// program which hangs can be ended. A signal that was ignored when the program started stays so (nohup).
// Started programs do not inherit any of it. One object to a process.
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
