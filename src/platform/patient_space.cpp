#include "platform/patient_space.h"

#include <QObject>
#include <QTimer>

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace paneda {

namespace {

using Clock = std::chrono::steady_clock;

struct Volume {
    VolumeSpace Space;
    bool IsAsked = false; // and has not answered yet
    bool IsLate = false;  // nobody waited for the answer any more
    Clock::time_point Asked;
    Clock::time_point Answered;
};

} // namespace

// Shared with the threads that ask.
struct PatientSpace::Answers {
    std::mutex Mutex;
    std::condition_variable Came;
    QHash<QString, Volume> Volumes;
    // On the thread of the event loop; set while somebody watches.
    std::unique_ptr<QObject> Watcher;
    std::function<void()> Changed;

    void Put(const QString& root, const VolumeSpace& space) {
        const std::lock_guard lock(Mutex);
        Volume& volume = Volumes[root];
        volume.Space = space;
        volume.IsAsked = false;
        volume.Answered = Clock::now();
        if (volume.IsLate && Watcher)
            QMetaObject::invokeMethod(Watcher.get(), Changed, Qt::QueuedConnection);
        Came.notify_all();
    }
};

PatientSpace::PatientSpace(Reader reader, const SpacePatience& patience)
    : reader_(std::move(reader)), patience_(patience), answers_(std::make_shared<Answers>()) {}

PatientSpace::~PatientSpace() {
    PatientSpace::Watch({});
}

VolumeSpace PatientSpace::SpaceOf(const QString& root) {
    if (root.isEmpty())
        return {};
    std::unique_lock lock(answers_->Mutex);
    const auto volume = [this, &root]() -> Volume& { return answers_->Volumes[root]; };
    const bool isFresh = volume().IsLate && Clock::now() - volume().Answered < patience_.Fresh;
    if (!volume().IsAsked && !isFresh) {
        volume().IsAsked = true;
        volume().IsLate = false;
        volume().Asked = Clock::now();
        Ask(root);
        answers_->Came.wait_for(lock, patience_.Wait, [&volume] { return !volume().IsAsked; });
        volume().IsLate = volume().IsAsked;
        // What is shown until then may be out of date.
        if (volume().IsLate && answers_->Watcher)
            QTimer::singleShot(patience_.Late, answers_->Watcher.get(), answers_->Changed);
    }
    const bool isDead = volume().IsAsked && Clock::now() - volume().Asked >= patience_.Late;
    return isDead ? VolumeSpace() : volume().Space;
}

// Under the lock.
void PatientSpace::Ask(const QString& root) {
    try {
        std::thread([answers = answers_, reader = reader_, root] {
            answers->Put(root, reader(root));
        }).detach();
    } catch (const std::system_error&) {
        // Without a thread the figures stay as they are.
        answers_->Volumes[root].IsAsked = false;
    }
}

void PatientSpace::Watch(std::function<void()> changed) {
    const std::lock_guard lock(answers_->Mutex);
    answers_->Watcher.reset();
    if (changed)
        answers_->Watcher = std::make_unique<QObject>();
    answers_->Changed = std::move(changed);
}

} // namespace paneda
