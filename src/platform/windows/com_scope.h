#pragma once

#include <windows.h>

#include <objbase.h>

namespace paneda {

// Initializes COM for calls of the shell on the current thread, while the object lives. If the thread has
// initialized COM in another mode, that mode stays; the shell works with it.
class ComScope {
public:
    ComScope() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) {}
    ~ComScope() {
        if (SUCCEEDED(result_))
            CoUninitialize();
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

private:
    HRESULT result_;
};

} // namespace paneda
