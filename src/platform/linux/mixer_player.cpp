#include "platform/linux/mixer_player.h"

#include "platform/linux/sound_worker.h"

namespace paneda {

namespace {

constexpr unsigned long kWaitAtEnd = 2'000; // ms

} // namespace

MixerPlayer::MixerPlayer() : board_(std::make_shared<SoundBoard>()) {}

MixerPlayer::~MixerPlayer() {
    if (!thread_)
        return;
    CloseAll();
    thread_->quit();
    // One that hangs is left to the end of the process; to destroy it would end that at once.
    if (!thread_->wait(kWaitAtEnd))
        static_cast<void>(thread_.release());
}

void MixerPlayer::StartThread() {
    if (thread_)
        return;
    thread_ = std::make_unique<QThread>();
    worker_ = new SoundWorker(board_);
    worker_->moveToThread(thread_.get());
    QObject::connect(thread_.get(), &QThread::finished, worker_, &QObject::deleteLater);
    thread_->start();
}

void MixerPlayer::Play(const QString& path, const QString& alias) {
    StartThread();
    const int ticket = board_->Begin(alias);
    QMetaObject::invokeMethod(worker_,
                              [worker = worker_, path, alias, ticket] { worker->Play(path, alias, ticket); });
}

void MixerPlayer::Stop(const QString& alias) {
    board_->Stop(alias);
    Silence(alias);
}

void MixerPlayer::Close(const QString& alias) {
    board_->Close(alias);
    Silence(alias);
}

void MixerPlayer::CloseAll() {
    board_->CloseAll();
    if (worker_)
        QMetaObject::invokeMethod(worker_, [worker = worker_] { worker->SilenceAll(); });
}

QString MixerPlayer::Status(const QString& alias) const {
    return board_->Status(alias);
}

void MixerPlayer::Silence(const QString& alias) {
    if (worker_)
        QMetaObject::invokeMethod(worker_, [worker = worker_, alias] { worker->Silence(alias); });
}

} // namespace paneda
