#include "core/disk/disk_entries.h"

#include "core/disk/linux/place.h"

#include <QFile>

#include <dirent.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <memory>

namespace paneda {

namespace {

EntryKind KindOf(mode_t mode) {
    switch (mode & S_IFMT) {
    case S_IFREG:
        return EntryKind::File;
    case S_IFDIR:
        return EntryKind::Folder;
    case S_IFLNK:
        return EntryKind::Link;
    default:
        return EntryKind::Other;
    }
}

EntryKind KindWithoutState(int error) {
    return error == ENOENT || error == ENOTDIR ? EntryKind::Missing : EntryKind::Unknown;
}

// A link that leads nowhere is there all the same.
bool StatThrough(int at, const char* name, bool refusesLinks, struct stat& status) {
    return fstatat(at, name, &status, refusesLinks ? AT_SYMLINK_NOFOLLOW : 0) == 0 ||
           fstatat(at, name, &status, AT_SYMLINK_NOFOLLOW) == 0;
}

EntryKind KindOfEntry(const dirent& entry, int folder, bool refusesLinks) {
    if (entry.d_type == DT_REG)
        return EntryKind::File;
    if (entry.d_type == DT_DIR)
        return EntryKind::Folder;
    struct stat status {};
    return StatThrough(folder, entry.d_name, refusesLinks, status) ? KindOf(status.st_mode)
                                                                   : KindWithoutState(errno);
}

QString NameOf(const char* bytes) {
    const QByteArray raw(bytes);
    QString name = QFile::decodeName(raw);
    return QFile::encodeName(name) == raw ? name : QString();
}

template <typename Call>
EntryResult OnPlace(const DiskPath& path, const Call& call) {
    const auto place = Locate(path);
    if (!place)
        return tl::make_unexpected(place.error());
    if (call(*place) != 0)
        return PlaceFailure(*place, errno);
    return {};
}

template <typename Call>
EntryResult OnPlaces(const DiskPath& from, const DiskPath& to, const Call& call) {
    const auto source = Locate(from);
    if (!source)
        return tl::make_unexpected(source.error());
    const auto target = Locate(to);
    if (!target)
        return tl::make_unexpected(target.error());
    return call(*source, *target) == 0 ? EntryResult() : EntryResult(SystemFailure(from.Text(), errno));
}

// Where letters' case does not tell names apart, one entry answers to both.
bool IsOtherSpelling(const Place& from, const Place& to) {
    struct stat a {};
    struct stat b {};
    return from.Text.compare(to.Text, Qt::CaseInsensitive) == 0 &&
           fstatat(from.At(), from.Name.constData(), &a, AT_SYMLINK_NOFOLLOW) == 0 &&
           fstatat(to.At(), to.Name.constData(), &b, AT_SYMLINK_NOFOLLOW) == 0 && a.st_dev == b.st_dev &&
           a.st_ino == b.st_ino;
}

int Rename(const Place& from, const Place& to, unsigned flags) {
    return renameat2(from.At(), from.Name.constData(), to.At(), to.Name.constData(), flags);
}

// For file systems that cannot refuse by themselves, as some on servers. A second name is refused where the
// name is taken; folders have none, and those that others make meanwhile are in danger while they are empty.
int RenameWithLook(const Place& from, const Place& to) {
    struct stat status {};
    if (fstatat(to.At(), to.Name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0) {
        if (IsOtherSpelling(from, to))
            return Rename(from, to, 0);
        errno = EEXIST;
        return -1;
    }
    if (linkat(from.At(), from.Name.constData(), to.At(), to.Name.constData(), 0) == 0)
        return unlinkat(from.At(), from.Name.constData(), 0);
    return errno == EEXIST ? -1 : Rename(from, to, 0);
}

} // namespace

EntryState LookAt(const DiskPath& path) {
    const auto place = Locate(path);
    if (!place)
        return {place.error().Problem == EntryProblem::Missing ? EntryKind::Missing : EntryKind::Unknown};
    struct stat status {};
    if (!StatThrough(place->At(), place->Name.constData(), place->RefusesLinks, status))
        return {KindWithoutState(errno)};
    const bool isWritable = faccessat(place->At(), place->Name.constData(), W_OK, AT_EACCESS) == 0;
    const qint64 msecs = qint64(status.st_mtim.tv_sec) * 1000 + status.st_mtim.tv_nsec / 1'000'000;
    return {KindOf(status.st_mode), status.st_size, QDateTime::fromMSecsSinceEpoch(msecs), isWritable};
}

tl::expected<std::vector<DiskEntry>, EntryError> ListEntries(const DiskPath& folder) {
    const auto place = Locate(folder);
    if (!place)
        return tl::make_unexpected(place.error());
    auto opened = OpenAt(*place, O_RDONLY | O_DIRECTORY);
    if (!opened)
        return tl::make_unexpected(opened.error());
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(fdopendir(opened->Get()), &closedir);
    if (!stream)
        return SystemFailure(folder.Text(), errno);
    const int descriptor = opened->Release();
    std::vector<DiskEntry> entries;
    errno = 0;
    while (const dirent* entry = readdir(stream.get())) {
        const QByteArrayView name(entry->d_name);
        if (name != "." && name != "..")
            entries.push_back({NameOf(entry->d_name), KindOfEntry(*entry, descriptor, folder.RefusesLinks()),
                               name.front() == '.'});
        errno = 0;
    }
    if (errno != 0)
        return SystemFailure(folder.Text(), errno);
    return entries;
}

EntryResult MakeNewFolder(const DiskPath& path) {
    return OnPlace(path, [](const Place& at) { return mkdirat(at.At(), at.Name.constData(), 0777); });
}

EntryResult CheckNameLength(const DiskPath& path) {
    return OnPlace(path, [](const Place& at) {
        struct stat status {};
        const int looked = fstatat(at.At(), at.Name.constData(), &status, AT_SYMLINK_NOFOLLOW);
        return looked != 0 && errno == ENAMETOOLONG ? -1 : 0;
    });
}

EntryResult RenameEntry(const DiskPath& from, const DiskPath& to) {
    return OnPlaces(from, to, [](const Place& source, const Place& target) {
        if (Rename(source, target, RENAME_NOREPLACE) == 0)
            return 0;
        if (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP)
            return RenameWithLook(source, target);
        const int error = errno;
        if (error == EEXIST && IsOtherSpelling(source, target))
            return Rename(source, target, 0);
        errno = error;
        return -1;
    });
}

EntryResult RenameOver(const DiskPath& from, const DiskPath& to) {
    return OnPlaces(from, to,
                    [](const Place& source, const Place& target) { return Rename(source, target, 0); });
}

EntryResult NameTwice(const DiskPath& file, const DiskPath& second) {
    return OnPlaces(file, second, [](const Place& source, const Place& target) {
        return linkat(source.At(), source.Name.constData(), target.At(), target.Name.constData(), 0);
    });
}

EntryResult RemoveFile(const DiskPath& path) {
    return OnPlace(path, [](const Place& at) { return unlinkat(at.At(), at.Name.constData(), 0); });
}

EntryResult CopyLink(const DiskPath& from, const DiskPath& to) {
    return OnPlaces(from, to, [](const Place& source, const Place& target) {
        QByteArray goal(PATH_MAX, '\0');
        const ssize_t size =
            readlinkat(source.At(), source.Name.constData(), goal.data(), std::size_t(goal.size() - 1));
        return size < 0 ? -1 : symlinkat(goal.constData(), target.At(), target.Name.constData());
    });
}

EntryResult FlushFolder(const DiskPath& folder) {
    const auto place = Locate(folder);
    if (!place)
        return tl::make_unexpected(place.error());
    const auto opened = OpenAt(*place, O_RDONLY | O_DIRECTORY);
    if (!opened)
        return tl::make_unexpected(opened.error());
    while (fsync(opened->Get()) != 0) {
        // Some network file systems refuse it for folders, whose names are on the server already.
        if (errno == EINVAL || errno == ENOTSUP)
            return {};
        if (errno != EINTR)
            return SystemFailure(folder.Text(), errno);
    }
    return {};
}

bool IsProcessRunning(qint64 processId) {
    return kill(pid_t(processId), 0) == 0 || errno != ESRCH;
}

} // namespace paneda
