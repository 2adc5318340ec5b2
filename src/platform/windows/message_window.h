#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace paneda {

// An invisible window that receives messages, in every message loop of its thread, including those of menus
// and message boxes.
class MessageWindow {
public:
    enum class Reach {
        Addressed, // only messages sent to this window
        Everyone,  // also messages that the system sends to all top-level windows
    };
    // The answer to a message; nothing if the system is to handle it.
    using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

    MessageWindow(Reach reach, Handler handler);
    ~MessageWindow();
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    // Null if it could not be made.
    HWND Get() const { return window_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    Handler handler_;
    HWND window_ = nullptr;
};

} // namespace paneda
