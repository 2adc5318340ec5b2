#include "core/disk/disk_entries.h"
#include "core/disk/linux/place.h"

#include <QFile>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>

namespace paneda {

namespace {

// By the names' own bytes, so that what no text can hold goes too.
class Removal {
public:
    void Remove(int at, const QByteArray& name, const QString& text);
    FileResult Result() const { return first_; }

private:
    void RemoveContents(int folder, const QString& text);
    void Note(const QString& text, int error);

    FileResult first_;
};

void Removal::Note(const QString& text, int error) {
    if (first_)
        first_ = WithoutProblem(SystemFailure(text, error));
}

void Removal::Remove(int at, const QByteArray& name, const QString& text) {
    struct stat status {};
    if (fstatat(at, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno != ENOENT)
            Note(text, errno);
        return;
    }
    // What has become a link since that look is removed like a file.
    const int folder = S_ISDIR(status.st_mode)
                           ? openat(at, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)
                           : -1;
    const int openError = errno;
    if (folder >= 0)
        RemoveContents(folder, text);
    const bool isFolder =
        folder >= 0 || (S_ISDIR(status.st_mode) && openError != ELOOP && openError != ENOTDIR);
    if (unlinkat(at, name.constData(), isFolder ? AT_REMOVEDIR : 0) != 0 && errno != ENOENT)
        Note(text, folder < 0 && isFolder ? openError : errno);
}

// Closes the folder.
void Removal::RemoveContents(int folder, const QString& text) {
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(fdopendir(folder), &closedir);
    if (!stream) {
        Note(text, errno);
        close(folder);
        return;
    }
    // Read to the end first: what a listing gives while entries go is not certain.
    std::vector<QByteArray> names;
    errno = 0;
    while (const dirent* entry = readdir(stream.get())) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
        errno = 0;
    }
    if (errno != 0)
        Note(text, errno);
    for (const QByteArray& name : names)
        Remove(folder, name, text + u'/' + QFile::decodeName(name));
}

} // namespace

FileResult RemoveTree(const DiskPath& path) {
    const auto place = Locate(path);
    if (!place && place.error().Problem == EntryProblem::Missing)
        return {};
    if (!place)
        return tl::make_unexpected(place.error().Error);
    Removal removal;
    removal.Remove(place->At(), place->Name, path.Text());
    return removal.Result();
}

} // namespace paneda
