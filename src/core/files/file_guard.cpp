#include "core/files/file_guard.h"

#include "core/disk/disk_file.h"
#include "core/files/file_io.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QSemaphore>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <optional>
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

// Since its last start, so that process numbers mean something.
QByteArray ThisHost() {
    return QSysInfo::machineHostName().toUtf8() + ' ' + QSysInfo::machineUniqueId() + ' ' +
           QSysInfo::bootUniqueId();
}

// A lock says on its lines: host, process, a text that no other lock has. Behind them one byte for each beat.
QByteArray NewLock() {
    return ThisHost() + '\n' + QByteArray::number(QCoreApplication::applicationPid()) + '\n' +
           RandomText().toLatin1() + '\n';
}

bool IsOfDeadProcess(const QByteArray& lock) {
    const QList<QByteArray> lines = lock.split('\n');
    bool isNumber = false;
    const qint64 process = lines.value(1).toLongLong(&isNumber);
    return lines.value(0) == ThisHost() && isNumber && !IsProcessRunning(process);
}

} // namespace

struct FileGuard::Held {
    Held(DiskFile&& file, QByteArray text, const GuardTimes& times)
        : Text(std::move(text)), file_(std::move(file)), beats_([this, times] { Beat(times); }) {}

    ~Held() {
        stop_.release();
        beats_.join();
    }

    const QByteArray Text;

private:
    void Beat(const GuardTimes& times) {
        while (!stop_.tryAcquire(1, int(times.Beat.count()))) {
            // Ignored: a lock that does not change is taken over at last, as it should be on a dying disk.
            if (file_.Write("."))
                (void)file_.Flush();
        }
    }

    DiskFile file_;
    QSemaphore stop_;
    std::thread beats_;
};

FileGuard::FileGuard(const DiskPath& file) : lock_(file.Parent() / (u'.' + file.Name() + u".lock")) {
    GuardWait wait;
    Take(wait);
}

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
    if (file->Write(text))
        held_ = std::make_unique<Held>(std::move(*file), std::move(text), times);
    else
        (void)RemoveFile(lock_);
    return true;
}

// Of several that find the same lock dead, only one renames it away. What that one got is looked at once
// more: it may be the new lock of another.
bool FileGuard::TakeAway(const QByteArray& seen) {
    const DiskPath away = lock_.Parent() / (kUnfinishedPrefix + RandomText());
    if (!RenameEntry(lock_, away))
        return false;
    const bool isSeen = ReadFileBytes(away, kMaxLock).value_or(QByteArray()) == seen;
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
        const auto now = ReadFileBytes(lock_, kMaxLock);
        // Nothing that a guard has made.
        if (!now && LookAt(lock_).Kind != EntryKind::Missing)
            return;
        const QByteArray lock = now.value_or(QByteArray());
        hasChanged = hasChanged || (seen && *seen != lock);
        seen = lock;
        waited = std::chrono::milliseconds(timer.elapsed());
        const bool isLeft = IsOfDeadProcess(lock) || (!hasChanged && waited >= wait.Times.Longest);
        if (isLeft && TakeAway(lock))
            continue;
        if (wait.used_ + waited >= wait.Times.Longest)
            break;
        QThread::msleep(static_cast<unsigned long>(pause.count()));
    }
    wait.used_ += waited;
}

} // namespace paneda
