#pragma once

#include "platform/sound_board.h"
#include "platform/sound_player.h"
#include "platform/sound_worker.h"

#include <QThread>

#include <functional>
#include <memory>

namespace paneda {

// Hands each call to a worker on a thread of its own, since to open a device or a file may take long, and
// answers from the board what the caller has asked for. Thread and worker come with the first sound.
class ThreadedPlayer : public SoundPlayer {
public:
    // Called once at most, on the caller's thread; never returns null.
    using MakeWorker = std::function<std::unique_ptr<SoundWorker>(std::shared_ptr<SoundBoard>)>;

    explicit ThreadedPlayer(MakeWorker makeWorker);
    // Waits for a device that hangs no longer than 2 s.
    ~ThreadedPlayer() override;
    Q_DISABLE_COPY_MOVE(ThreadedPlayer)

    void Play(const QString& path, const QString& alias) override;
    void Stop(const QString& alias) override;
    void Close(const QString& alias) override;
    void CloseAll() override;
    QString Status(const QString& alias) const override;

private:
    void StartThread();
    // Nothing where no sound has been played yet.
    void Tell(const std::function<void(SoundWorker&)>& call);

    MakeWorker makeWorker_;
    std::shared_ptr<SoundBoard> board_;
    std::unique_ptr<QThread> thread_;
    SoundWorker* worker_ = nullptr; // lives on the thread and ends with it
};

} // namespace paneda
