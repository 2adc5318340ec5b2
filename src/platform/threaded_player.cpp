#include "platform/threaded_player.h"

#include <utility>

namespace paneda {

namespace {

constexpr unsigned long kWaitAtEnd = 200; // ms

} // namespace

ThreadedPlayer::ThreadedPlayer(MakeWorker makeWorker)
    : makeWorker_(std::move(makeWorker)), board_(std::make_shared<SoundBoard>()) {}

ThreadedPlayer::~ThreadedPlayer() {
    if (!thread_)
        return;
    board_->CloseAll();
    Tell([](SoundWorker& worker) { worker.CloseAll(); });
    thread_->quit();
    // A thread that hangs stays until EndProcess; to destroy a running thread would abort the program.
    if (!thread_->wait(kWaitAtEnd))
        static_cast<void>(thread_.release());
}

void ThreadedPlayer::StartThread() {
    if (thread_)
        return;
    thread_ = std::make_unique<QThread>();
    worker_ = makeWorker_(board_).release();
    worker_->moveToThread(thread_.get());
    QObject::connect(thread_.get(), &QThread::finished, worker_, &QObject::deleteLater);
    thread_->start();
}

void ThreadedPlayer::Tell(const std::function<void(SoundWorker&)>& call) {
    if (worker_)
        QMetaObject::invokeMethod(worker_, [worker = worker_, call] { call(*worker); });
}

void ThreadedPlayer::Play(const QString& path, const QString& alias) {
    StartThread();
    const int ticket = board_->Begin(alias);
    Tell([path, alias, ticket](SoundWorker& worker) { worker.Play(path, alias, ticket); });
}

void ThreadedPlayer::Stop(const QString& alias) {
    board_->Stop(alias);
    Tell([alias](SoundWorker& worker) { worker.Stop(alias); });
}

void ThreadedPlayer::Close(const QString& alias) {
    board_->Close(alias);
    Tell([alias](SoundWorker& worker) { worker.Close(alias); });
}

void ThreadedPlayer::CloseAll() {
    board_->CloseAll();
    Tell([](SoundWorker& worker) { worker.CloseAll(); });
}

QString ThreadedPlayer::Status(const QString& alias) const {
    return board_->Status(alias);
}

} // namespace paneda
