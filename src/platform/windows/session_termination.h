#pragma once

#include "platform/termination.h"
#include "platform/windows/message_window.h"

#include <QObject>

#include <memory>

namespace paneda {

// The end of the session, an installer that needs the files, or a request to close. They reach a hidden
// window of its own, so that it does not matter whether the panel is visible. At the end of the session `end`
// runs before the system gets its answer, because the process may be ended right after. If another program
// prevents the end of the session, this program keeps running.
class SessionTermination : public Termination {
public:
    SessionTermination() = default;
    ~SessionTermination() override = default;
    Q_DISABLE_COPY_MOVE(SessionTermination)

    void OnRequest(std::function<void()> end) override;

private:
    std::optional<LRESULT> Handle(UINT message, WPARAM wParam);
    void Ask();
    void AskAtQuit();

    QObject context_;
    std::unique_ptr<MessageWindow> window_;
    std::function<void()> end_;
    bool sessionEnds_ = false;
    bool hasAsked_ = false;
};

} // namespace paneda
