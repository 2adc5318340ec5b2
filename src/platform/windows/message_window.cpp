#include "platform/windows/message_window.h"

#include <utility>

namespace paneda {

namespace {

constexpr wchar_t kClassName[] = L"PanedaMessages";

void RegisterClassOnce(WNDPROC procedure) {
    static const ATOM registered = [procedure] {
        WNDCLASSEXW window{};
        window.cbSize = sizeof window;
        window.lpfnWndProc = procedure;
        window.hInstance = GetModuleHandleW(nullptr);
        window.lpszClassName = kClassName;
        return RegisterClassExW(&window);
    }();
    static_cast<void>(registered);
}

} // namespace

MessageWindow::MessageWindow(Reach reach, Handler handler) : handler_(std::move(handler)) {
    RegisterClassOnce(Procedure);
    const HWND parent = reach == Reach::Addressed ? HWND_MESSAGE : nullptr;
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW, kClassName, L"", WS_POPUP, 0, 0, 0, 0, parent, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    // Not earlier, because the system has to handle the messages during the window's creation.
    if (window_)
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageWindow::~MessageWindow() {
    if (!window_)
        return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK MessageWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const std::optional<LRESULT> answer = self ? self->handler_(message, wParam, lParam) : std::nullopt;
    return answer ? *answer : DefWindowProcW(window, message, wParam, lParam);
}

} // namespace paneda
