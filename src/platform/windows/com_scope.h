#pragma once

#include <windows.h>

#include <objbase.h>

namespace paneda {

// COM for the calls of the shell on whatever thread they are made. A thread that has it in another form keeps
// that form, which the shell gets along with.
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
