#pragma once

#include "platform/sound_board.h"
#include "platform/sound_player.h"
#include "platform/sound_worker.h"

#include <QThread>

#include <functional>
#include <memory>

namespace paneda {

// Passes each call to a worker on another thread, because it can take long to open a device or a file. Status
// is answered from the board. Thread and worker are made for the first sound.
class ThreadedPlayer : public SoundPlayer {
public:
    // Called at most once, on the caller's thread. Must not return null.
    using MakeWorker = std::function<std::unique_ptr<SoundWorker>(std::shared_ptr<SoundBoard>)>;

    explicit ThreadedPlayer(MakeWorker makeWorker);
    // Waits a fifth of a second at most for a device that hangs.
    ~ThreadedPlayer() override;
    Q_DISABLE_COPY_MOVE(ThreadedPlayer)

    void Play(const QString& path, const QString& alias) override;
    void Stop(const QString& alias) override;
    void Close(const QString& alias) override;
    void CloseAll() override;
    QString Status(const QString& alias) const override;

private:
    void StartThread();
    // Does nothing before the first sound.
    void Tell(const std::function<void(SoundWorker&)>& call);

    MakeWorker makeWorker_;
    std::shared_ptr<SoundBoard> board_;
    std::unique_ptr<QThread> thread_;
    SoundWorker* worker_ = nullptr; // lives on the thread and ends with it
};

} // namespace paneda
