#include "core/disk/disk_entries.h"

#include "core/disk/windows/place.h"

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

FileResult FlushOne(const DiskPath& path, FlushEx withoutDisk) {
    const auto place = Locate(path);
    if (!place)
        return tl::make_unexpected(place.error().Error);
    constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle file(CreateFileW(place->Path.c_str(), GENERIC_WRITE, kShare, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL | place->NoFollow(), nullptr));
    if (!file.IsOpen())
        return WithoutProblem(SystemFailure(path.Text(), GetLastError()));
    IO_STATUS_BLOCK status{};
    // File systems that do not know the short way get the long one.
    const bool flushed = (withoutDisk && withoutDisk(file.Get(), kNoDiskFlush, nullptr, 0, &status) >= 0) ||
                         FlushFileBuffers(file.Get()) != FALSE;
    return flushed ? FileResult() : WithoutProblem(SystemFailure(path.Text(), GetLastError()));
}

} // namespace

// A volume can be flushed at once by administrators alone. The last file asks the disk to empty its cache,
// which is what the others wait for. Names are safe with their files' metadata.
FileResult FlushFilesToDisk(const std::vector<DiskPath>& files) {
    const FlushEx flushEx = FindFlushEx();
    for (std::size_t i = 0; i < files.size(); ++i) {
        const bool isLast = i + 1 == files.size();
        if (const FileResult flushed = FlushOne(files[i], isLast ? nullptr : flushEx); !flushed)
            return flushed;
    }
    return {};
}

} // namespace paneda
