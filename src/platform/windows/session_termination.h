#pragma once

#include "platform/termination.h"
#include "platform/windows/message_window.h"

#include <QObject>

#include <memory>

namespace paneda {

// The end of the session, an installer that needs the files, and a wish to close, which reach a hidden window
// of its own whether the panel is to be seen or not. At the end of the session `end` runs before the system
// is answered, since the process may be gone right after. A session whose end another program prevents goes
// on, and so does this one.
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
