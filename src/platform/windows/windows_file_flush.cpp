#include "platform/file_flush.h"

#include "platform/windows/wide_text.h"

#include <QDir>

#include <windows.h>
#include <winternl.h>

namespace paneda {

namespace {

// From the kernel's interface: file and metadata go to the disk, but the disk is not asked to empty its own
// cache. Emptying it is what takes the time, and once for all files is enough.
constexpr ULONG kNoDiskFlush = 2;
using FlushEx = NTSTATUS(NTAPI*)(HANDLE, ULONG, PVOID, ULONG, PIO_STATUS_BLOCK);

FlushEx FindFlushEx() {
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    return library ? reinterpret_cast<FlushEx>(
                         reinterpret_cast<void*>(GetProcAddress(library, "NtFlushBuffersFileEx")))
                   : nullptr;
}

FileResult FlushOne(const QString& path, FlushEx withoutDisk) {
    const QString name = QDir::toNativeSeparators(path);
    constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(Wide(name), GENERIC_WRITE, kShare, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return Failure(path, qt_error_string(int(GetLastError())));
    IO_STATUS_BLOCK status{};
    // File systems that do not know the short way get the long one.
    const bool flushed = (withoutDisk && withoutDisk(file, kNoDiskFlush, nullptr, 0, &status) >= 0) ||
                         FlushFileBuffers(file) != FALSE;
    const DWORD error = flushed ? ERROR_SUCCESS : GetLastError();
    CloseHandle(file);
    return flushed ? FileResult() : Failure(path, qt_error_string(int(error)));
}

} // namespace

// A volume can be flushed at once by administrators alone. The last file asks the disk to empty its cache,
// which is what the others wait for. Names are safe with their files' metadata.
FileResult FlushFilesToDisk(const QStringList& files) {
    const FlushEx flushEx = FindFlushEx();
    for (qsizetype i = 0; i < files.size(); ++i) {
        const bool isLast = i + 1 == files.size();
        if (const FileResult flushed = FlushOne(files[i], isLast ? nullptr : flushEx); !flushed)
            return flushed;
    }
    return {};
}

} // namespace paneda
