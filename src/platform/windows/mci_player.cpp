#include "platform/windows/mci_player.h"

#include "platform/windows/mci_worker.h"

namespace paneda {

namespace {

constexpr unsigned long kWaitAtEnd = 2'000; // ms

} // namespace

MciPlayer::MciPlayer() : board_(std::make_shared<SoundBoard>()) {}

MciPlayer::~MciPlayer() {
    if (!thread_)
        return;
    CloseAll();
    thread_->quit();
    // One that hangs is left to the end of the process; to destroy it would end that at once.
    if (!thread_->wait(kWaitAtEnd))
        static_cast<void>(thread_.release());
}

void MciPlayer::StartThread() {
    if (thread_)
        return;
    thread_ = std::make_unique<QThread>();
    worker_ = new MciWorker(board_);
    worker_->moveToThread(thread_.get());
    QObject::connect(thread_.get(), &QThread::finished, worker_, &QObject::deleteLater);
    thread_->start();
}

void MciPlayer::Play(const QString& path, const QString& alias) {
    StartThread();
    const int ticket = board_->Begin(alias);
    QMetaObject::invokeMethod(worker_,
                              [worker = worker_, path, alias, ticket] { worker->Play(path, alias, ticket); });
}

void MciPlayer::Stop(const QString& alias) {
    board_->Stop(alias);
    if (worker_)
        QMetaObject::invokeMethod(worker_, [worker = worker_, alias] { worker->Stop(alias); });
}

void MciPlayer::Close(const QString& alias) {
    board_->Close(alias);
    if (worker_)
        QMetaObject::invokeMethod(worker_, [worker = worker_, alias] { worker->Close(alias); });
}

void MciPlayer::CloseAll() {
    board_->CloseAll();
    if (worker_)
        QMetaObject::invokeMethod(worker_, [worker = worker_] { worker->CloseAll(); });
}

QString MciPlayer::Status(const QString& alias) const {
    return board_->Status(alias);
}

} // namespace paneda
