#include "platform/windows/session_termination.h"

#include <QCoreApplication>

namespace paneda {

void SessionTermination::OnRequest(std::function<void()> end) {
    end_ = std::move(end);
    if (window_)
        return;
    window_ = std::make_unique<MessageWindow>(
        MessageWindow::Reach::Everyone,
        [this](UINT message, WPARAM wParam, LPARAM) { return Handle(message, wParam); });
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, &context_,
                     [this] { AskAtQuit(); });
}

std::optional<LRESULT> SessionTermination::Handle(UINT message, WPARAM wParam) {
    switch (message) {
    case WM_QUERYENDSESSION:
        sessionEnds_ = true;
        return TRUE;
    case WM_ENDSESSION:
        sessionEnds_ = wParam != 0;
        if (sessionEnds_)
            Ask();
        return 0;
    case WM_CLOSE:
        Ask();
        return 0;
    default:
        return std::nullopt;
    }
}

// At the end of a session Qt's windows quit the event loop, perhaps before this window gets its message.
void SessionTermination::AskAtQuit() {
    if (sessionEnds_ && !hasAsked_)
        Ask();
}

void SessionTermination::Ask() {
    hasAsked_ = true;
    const std::function<void()> end = end_;
    end();
}

} // namespace paneda
