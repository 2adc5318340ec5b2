#include "core/disk/disk_file.h"

#include <utility>

namespace paneda {

DiskFile::DiskFile(DiskFile&& other) noexcept
    : handle_(std::exchange(other.handle_, kClosed)), path_(std::move(other.path_)), size_(other.size_) {}

DiskFile& DiskFile::operator=(DiskFile&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(path_, other.path_);
    std::swap(size_, other.size_);
    return *this;
}

DiskFile::~DiskFile() {
    (void)Close();
}

EntryResult DiskFile::Close() {
    return handle_ == kClosed ? EntryResult() : CloseInSystem(std::exchange(handle_, kClosed), path_);
}

} // namespace paneda
