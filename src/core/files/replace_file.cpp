#include "core/files/file_batch.h"
#include "core/files/staged_file.h"

#include <algorithm>

namespace paneda {

namespace {

FileResult StageAll(const std::vector<DiskPath>& paths, const BytesOfFile& bytesOf,
                    std::vector<Staged>& staged) {
    std::vector<FileResult> results(staged.size());
    InParallel(staged.size(), [&](std::size_t i) {
        const auto bytes = bytesOf(i);
        auto one = bytes ? Stage(paths[i], WriteAll(*bytes), {}, false) : tl::make_unexpected(bytes.error());
        if (one)
            staged[i] = std::move(*one);
        else
            results[i] = tl::make_unexpected(one.error());
    });
    const auto failed = std::find_if(results.begin(), results.end(), [](const auto& one) { return !one; });
    return failed == results.end() ? FileResult() : *failed;
}

FileResult PutAllInPlace(std::vector<Staged>& staged) {
    std::vector<DiskPath> targets;
    for (Staged& one : staged) {
        NameOld(one);
        if (const FileResult placed = PutInPlace(one); !placed)
            return placed;
        targets.push_back(one.Target);
    }
    // The new names are on the disk before the old files go.
    return FlushFilesToDisk(targets);
}

} // namespace

FileResult ReplaceFile(const DiskPath& path, const QByteArray& bytes) {
    return ReplaceFileBy(path, WriteAll(bytes), {});
}

FileResult ReplaceFileLike(const DiskPath& path, const QByteArray& bytes, const DiskPath& like) {
    return ReplaceFileBy(path, WriteAll(bytes), like);
}

FileResult ReplaceFileBy(const DiskPath& path, const FileWriter& write, const DiskPath& like) {
    auto staged = Stage(path, write, like, true);
    if (!staged)
        return tl::make_unexpected(staged.error());
    const FileResult placed = PutInPlace(*staged);
    if (!placed)
        (void)RemoveFile(staged->Unfinished);
    return placed;
}

FileResult ReplaceFiles(const std::vector<DiskPath>& paths, const BytesOfFile& bytesOf) {
    std::vector<Staged> staged(paths.size());
    FileResult result = StageAll(paths, bytesOf, staged);
    if (result) {
        std::vector<DiskPath> files;
        for (const Staged& one : staged)
            files.push_back(one.Unfinished);
        result = FlushFilesToDisk(files);
    }
    if (result)
        result = PutAllInPlace(staged);
    ClearAway(staged);
    return result;
}

} // namespace paneda
