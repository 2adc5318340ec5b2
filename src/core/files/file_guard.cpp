#include "core/files/file_guard.h"

#include "core/disk/disk_file.h"
#include "core/files/file_io.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QSemaphore>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace paneda {

namespace {

constexpr qint64 kMaxLock = 64 * 1024; // bytes; a holder writes one a second
constexpr std::chrono::milliseconds kFirstPause{5};
constexpr std::chrono::milliseconds kLongestPause{200};

QString RandomText() {
    return QString::number(QRandomGenerator::system()->generate64(), 36);
}

// Since its last start, so that process numbers mean something. Hashed, since the parts are not for
// everybody.
QByteArray ThisHost() {
    const QByteArray host = QSysInfo::machineHostName().toUtf8() + ' ' + QSysInfo::machineUniqueId() + ' ' +
                            QSysInfo::bootUniqueId();
    return QCryptographicHash::hash(host, QCryptographicHash::Sha256).toHex().first(32);
}

// A lock says on its lines: host, process, a text that no other lock has. Behind them one byte for each beat.
QByteArray NewLock() {
    return ThisHost() + '\n' + QByteArray::number(QCoreApplication::applicationPid()) + '\n' +
           RandomText().toLatin1() + '\n';
}

enum class Holder { Unknown, Running, Dead };

// The process that holds a lock, where it is of this host.
Holder HolderOf(const QByteArray& lock) {
    const QList<QByteArray> lines = lock.split('\n');
    bool isNumber = false;
    const qint64 process = lines.value(1).toLongLong(&isNumber);
    if (lines.value(0) != ThisHost() || !isNumber)
        return Holder::Unknown;
    return IsProcessRunning(process) ? Holder::Running : Holder::Dead;
}

// What a lock says; for a file that cannot be read, or is too large for a lock, what shows its change.
// Nothing for what is no file.
std::optional<QByteArray> LookAtLock(const DiskPath& lock) {
    if (const auto bytes = ReadFileBytes(lock, kMaxLock))
        return *bytes;
    const EntryState state = LookAt(lock);
    if (state.Kind == EntryKind::Missing)
        return QByteArray();
    if (state.Kind != EntryKind::File)
        return std::nullopt;
    return QByteArray::number(state.Size) + ' ' + QByteArray::number(state.Modified.toMSecsSinceEpoch());
}

} // namespace

struct FileGuard::Held {
    Held(DiskFile&& file, QByteArray text, const GuardTimes& times)
        : Text(std::move(text)), file_(std::move(file)) {
        try {
            beats_ = std::thread([this, times] { Beat(times); });
        } catch (const std::system_error&) {
            // A lock without beats is as good for most saves: they are shorter than a beat.
        }
    }

    ~Held() {
        stop_.release();
        if (beats_.joinable())
            beats_.join();
    }

    const QByteArray Text;

private:
    void Beat(const GuardTimes& times) {
        while (!stop_.tryAcquire(1, int(times.Beat.count()))) {
            // Ignored: a lock that does not change is taken over at last, as it should be on a dying disk.
            // Not flushed: others have to see a beat in time, and a flush takes seconds on a busy server.
            if (file_.Write("."))
                file_.Send();
        }
    }

    DiskFile file_;
    QSemaphore stop_;
    std::thread beats_;
};

FileGuard::FileGuard(const DiskPath& file, GuardWait&& wait) : FileGuard(file, wait) {}

FileGuard::FileGuard(const DiskPath& file, GuardWait& wait)
    : lock_(file.Parent() / (u'.' + file.Name() + u".lock")) {
    Take(wait);
}

FileGuard::~FileGuard() {
    if (!held_)
        return;
    const QByteArray own = held_->Text;
    held_.reset();
    // Another process may have taken it over.
    if (ReadFileBytes(lock_, kMaxLock).value_or(QByteArray()).startsWith(own))
        (void)RemoveFile(lock_);
}

// False when another one has it.
bool FileGuard::TryLock(const GuardTimes& times) {
    auto file = DiskFile::Create(lock_);
    // A lock that is just being removed is refused in other ways.
    if (!file)
        return LookAt(lock_).Kind == EntryKind::Missing;
    QByteArray text = NewLock();
    if (file->Write(text)) {
        file->Send();
        held_ = std::make_unique<Held>(std::move(*file), std::move(text), times);
    } else {
        (void)file->Close();
        (void)RemoveFile(lock_);
    }
    return true;
}

// Of several that find the same lock dead, only one renames it away. What that one got is looked at once
// more: it may be the new lock of another.
bool FileGuard::TakeAway(const QByteArray& seen) {
    const DiskPath away = lock_.Parent() / (kUnfinishedPrefix + RandomText());
    if (!RenameEntry(lock_, away))
        return false;
    const bool isSeen = LookAtLock(away) == seen;
    if (isSeen || !RenameEntry(away, lock_))
        (void)RemoveFile(away);
    return isSeen;
}

void FileGuard::Take(GuardWait& wait) {
    QElapsedTimer timer;
    timer.start();
    std::optional<QByteArray> seen;
    bool hasChanged = false;
    std::chrono::milliseconds waited{0};
    for (auto pause = kFirstPause; !TryLock(wait.Times); pause = std::min(2 * pause, kLongestPause)) {
        const auto lock = LookAtLock(lock_);
        // Nothing that a guard has made.
        if (!lock)
            return;
        hasChanged = hasChanged || (seen && *seen != *lock);
        seen = lock;
        waited = std::chrono::milliseconds(timer.elapsed());
        const Holder holder = HolderOf(*lock);
        const bool isOld = !hasChanged && waited >= wait.Times.Longest;
        if ((holder == Holder::Dead || (holder == Holder::Unknown && isOld)) && TakeAway(*lock))
            continue;
        if (wait.used_ + waited >= wait.Times.Longest)
            break;
        QThread::msleep(static_cast<unsigned long>(pause.count()));
    }
    wait.used_ += waited;
}

} // namespace paneda
