#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace paneda {

// A window that is never seen and takes messages. Those reach it in every message loop of its thread, that of
// a menu or a message box included.
class MessageWindow {
public:
    enum class Reach {
        Addressed, // only what is sent to this window
        Everyone,  // also what the system sends to all top-level windows
    };
    // The answer to a message; nothing for one that the system is to handle.
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
