#include "core/disk/disk_file.h"

#include "core/disk/linux/place.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>

namespace paneda {

namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr mode_t kPermissionBits = 0777;
constexpr mode_t kGroupBits = 070;
constexpr mode_t kOtherBits = 07;

// Where the two differ in nothing else, the list decides who may use the file.
void TakeAccessList(int from, int to) {
    QByteArray list(64 * 1024, Qt::Uninitialized); // the largest attribute that Linux has
    const ssize_t size = fgetxattr(from, kAccessList, list.data(), std::size_t(list.size()));
    // Ignored: few file systems have such lists, and a new one comes from the folder at most.
    if (size > 0)
        (void)fsetxattr(to, kAccessList, list.constData(), std::size_t(size), 0);
    else
        (void)fremovexattr(to, kAccessList);
}

// The group first, since the system takes bits away when the group changes.
EntryResult TakePermissions(const Place& like, int file) {
    const auto old = OpenAt(like, O_RDONLY);
    struct stat status {};
    const bool isKnown = old ? fstat(old->Get(), &status) == 0
                             : fstatat(like.At(), like.Name.constData(), &status, like.StatNoFollow()) == 0;
    if (!isKnown)
        return PlaceFailure(like, errno);
    // Only an administrator can give a file away; others keep the group where they belong to it.
    const bool keepsGroup =
        fchown(file, status.st_uid, status.st_gid) == 0 || fchown(file, uid_t(-1), status.st_gid) == 0;
    if (old)
        TakeAccessList(old->Get(), file);
    mode_t mode = status.st_mode & kPermissionBits;
    // What the old group may is not for another one.
    if (!keepsGroup)
        mode = (mode & ~kGroupBits) | (mode & kOtherBits) << 3;
    // Ignored: sticks have no permissions.
    (void)fchmod(file, mode);
    return {};
}

} // namespace

tl::expected<DiskFile, EntryError> DiskFile::OpenToRead(const DiskPath& path) {
    const auto missing = [&] {
        return tl::make_unexpected(EntryError{
            EntryProblem::Missing, Failure(path.Text(), QStringLiteral("The file does not exist.")).value()});
    };
    const auto place = Locate(path);
    if (!place && place.error().Problem == EntryProblem::Missing)
        return missing();
    if (!place)
        return tl::make_unexpected(place.error());
    const auto isRegular = [](const struct stat& status) { return S_ISREG(status.st_mode); };
    const auto noFile = [&] {
        return tl::make_unexpected(EntryError{
            EntryProblem::Other, Failure(path.Text(), QStringLiteral("This is not a file.")).value()});
    };
    struct stat status {};
    // Looked at first, since opening alone has effects on some devices.
    if (fstatat(place->At(), place->Name.constData(), &status, place->StatNoFollow()) == 0 &&
        !S_ISLNK(status.st_mode) && !isRegular(status))
        return noFile();
    auto file = OpenAt(*place, O_RDONLY);
    if (!file && file.error().Problem == EntryProblem::Missing)
        return missing();
    if (!file)
        return tl::make_unexpected(file.error());
    if (fstat(file->Get(), &status) != 0)
        return PlaceFailure(*place, errno);
    if (!isRegular(status))
        return noFile();
    return DiskFile(file->Release(), path.Text(), status.st_size);
}

tl::expected<DiskFile, EntryError> DiskFile::Create(const DiskPath& path, const DiskPath* like) {
    const auto place = Locate(path);
    if (!place)
        return tl::make_unexpected(place.error());
    const mode_t mode = like ? S_IRUSR | S_IWUSR : 0666;
    auto file = OpenAt(*place, O_WRONLY | O_CREAT | O_EXCL, mode);
    if (!file)
        return tl::make_unexpected(file.error());
    if (like) {
        const auto old = Locate(*like);
        const EntryResult taken = old ? TakePermissions(*old, file->Get()) : tl::make_unexpected(old.error());
        if (!taken) {
            unlinkat(place->At(), place->Name.constData(), 0);
            return tl::make_unexpected(taken.error());
        }
    }
    return DiskFile(file->Release(), path.Text(), 0);
}

tl::expected<QByteArray, EntryError> DiskFile::Read(qint64 most) {
    QByteArray bytes(most, Qt::Uninitialized);
    qint64 size = 0;
    while (size < most) {
        const ssize_t part = read(int(handle_), bytes.data() + size, std::size_t(most - size));
        if (part == 0)
            break;
        if (part < 0 && errno != EINTR)
            return SystemFailure(path_, errno);
        size += part < 0 ? 0 : part;
    }
    bytes.truncate(size);
    return bytes;
}

EntryResult DiskFile::Write(const QByteArray& bytes) {
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t part = write(int(handle_), bytes.constData() + done, std::size_t(bytes.size() - done));
        if (part < 0 && errno != EINTR)
            return SystemFailure(path_, errno);
        done += part < 0 ? 0 : part;
    }
    return {};
}

void DiskFile::Send() {
    // A host may keep what is written to a server for half a minute.
    (void)sync_file_range(int(handle_), 0, 0, SYNC_FILE_RANGE_WRITE);
}

EntryResult DiskFile::Flush() {
    while (fsync(int(handle_)) != 0) {
        if (errno != EINTR)
            return SystemFailure(path_, errno);
    }
    return {};
}

EntryResult DiskFile::CloseInSystem(qintptr handle, const QString& path) {
    // After an interruption the file is closed all the same.
    if (close(int(handle)) != 0 && errno != EINTR)
        return SystemFailure(path, errno);
    return {};
}

EntryResult CopyPermissions(const DiskPath& from, const DiskPath& to) {
    const auto source = Locate(from);
    const auto target = Locate(to);
    if (!source || !target)
        return tl::make_unexpected(source ? target.error() : source.error());
    const auto folder = OpenAt(*target, O_RDONLY | O_DIRECTORY);
    return folder ? TakePermissions(*source, folder->Get()) : tl::make_unexpected(folder.error());
}

} // namespace paneda
