#include "core/disk/linux/place.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace paneda {

namespace {

EntryProblem ProblemOf(int error) {
    switch (error) {
    case EEXIST:
    case ENOTEMPTY:
        return EntryProblem::AlreadyThere;
    case EXDEV:
        return EntryProblem::OtherVolume;
    case ENOENT:
        return EntryProblem::Missing;
    default:
        return EntryProblem::Other;
    }
}

bool IsLinkAt(int folder, const char* name) {
    struct stat status {};
    return fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode);
}

tl::unexpected<EntryError> Refused(const QString& path, const QString& reason) {
    return tl::make_unexpected(EntryError{EntryProblem::Other, Failure(path, reason).value()});
}

tl::expected<Descriptor, EntryError> OpenFolder(int at, const QByteArray& name, int flags,
                                                const QString& path) {
    const int folder = openat(at, name.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC | flags);
    if (folder >= 0)
        return Descriptor(folder);
    const int error = errno;
    if (flags != 0 && IsLinkAt(at, name.constData()))
        return Refused(path, kLinkRefused);
    return SystemFailure(path, error);
}

} // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept : file_(std::exchange(other.file_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(file_, other.file_);
    return *this;
}

Descriptor::~Descriptor() {
    if (IsOpen())
        close(file_);
}

int Descriptor::Release() {
    return std::exchange(file_, -1);
}

tl::expected<Place, EntryError> Locate(const DiskPath& path) {
    if (!path.Text().isValidUtf16() || path.Text().contains(QChar(0)))
        return Refused(path.Text(), QStringLiteral("No file can have this name."));
    if (!path.RefusesLinks() || path.IsRoot())
        return Place{{}, QFile::encodeName(path.Text()), path.Text(), false};
    const std::optional<QStringList> names = path.NamesBelowRoot();
    if (!names)
        return Refused(path.Text(), QStringLiteral("The path leads out of %1.").arg(path.Root()));
    QString folderText = path.Root();
    auto folder = OpenFolder(AT_FDCWD, QFile::encodeName(folderText), 0, folderText);
    for (qsizetype i = 0; folder && i + 1 < names->size(); ++i) {
        folderText += u'/' + names->at(i);
        folder = OpenFolder(folder->Get(), QFile::encodeName(names->at(i)), O_NOFOLLOW, folderText);
    }
    if (!folder)
        return tl::make_unexpected(folder.error());
    return Place{std::move(*folder), QFile::encodeName(names->last()), path.Text(), true};
}

tl::expected<Descriptor, EntryError> OpenAt(const Place& place, int flags, mode_t mode) {
    constexpr int kAlways = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const int file = openat(place.At(), place.Name.constData(), flags | kAlways | place.NoFollow(), mode);
    if (file >= 0)
        return Descriptor(file);
    return PlaceFailure(place, errno);
}

tl::unexpected<EntryError> SystemFailure(const QString& path, int error) {
    const QString reason =
        error == ENAMETOOLONG
            ? QStringLiteral(
                  "The name is too long: most disks take 255 bytes, of which a letter beyond ASCII "
                  "needs two to four.")
            : qt_error_string(error);
    return tl::make_unexpected(EntryError{ProblemOf(error), Failure(path, reason).value()});
}

tl::unexpected<EntryError> PlaceFailure(const Place& place, int error) {
    const bool mayBeLink = error == ELOOP || error == ENOTDIR || error == EMLINK;
    if (place.RefusesLinks && mayBeLink && IsLinkAt(place.At(), place.Name.constData()))
        return Refused(place.Text, kLinkRefused);
    return SystemFailure(place.Text, error);
}

} // namespace paneda
