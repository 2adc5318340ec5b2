#include "core/disk/disk_entries.h"
#include "core/disk/linux/place.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>

namespace paneda {

namespace {

// Up to this number files are flushed one by one, because to flush the whole file system also waits for what
// other programs write.
constexpr std::size_t kFewFiles = 16;

FileResult FlushFile(const DiskPath& path) {
    const auto place = Locate(path);
    const auto file = place ? OpenAt(*place, O_RDONLY) : tl::make_unexpected(place.error());
    if (!file)
        return tl::make_unexpected(file.error().Error);
    while (fsync(file->Get()) != 0) {
        if (errno != EINTR)
            return WithoutProblem(SystemFailure(path.Text(), errno));
    }
    return {};
}

FileResult FlushEach(const std::vector<DiskPath>& files) {
    for (const DiskPath& file : files) {
        FileResult flushed = FlushFile(file);
        if (flushed)
            flushed = WithoutProblem(FlushFolder(file.Parent()));
        if (!flushed)
            return flushed;
    }
    return {};
}

} // namespace

FileResult FlushFilesToDisk(const std::vector<DiskPath>& files) {
    if (files.size() <= kFewFiles)
        return FlushEach(files);
    std::map<dev_t, Descriptor> systems;
    for (const DiskPath& path : files) {
        const auto place = Locate(path);
        auto file = place ? OpenAt(*place, O_RDONLY) : tl::make_unexpected(place.error());
        if (!file)
            return tl::make_unexpected(file.error().Error);
        struct stat status {};
        if (fstat(file->Get(), &status) != 0)
            return WithoutProblem(SystemFailure(path.Text(), errno));
        systems.try_emplace(status.st_dev, std::move(*file));
    }
    for (const auto& [device, file] : systems) {
        // The error may be that of a file which is not ours.
        if (syncfs(file.Get()) != 0)
            return FlushEach(files);
    }
    return {};
}

} // namespace paneda
