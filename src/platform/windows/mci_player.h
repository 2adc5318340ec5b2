#pragma once

#include "platform/sound_board.h"
#include "platform/sound_player.h"

#include <QThread>

#include <memory>

namespace paneda {

class MciWorker;

// Sounds by the media control interface. It belongs to the thread that opens a device, and opening one may
// take long; so there is one thread for all of it, which comes with the first sound.
class MciPlayer : public SoundPlayer {
public:
    MciPlayer();
    // Waits for a device that hangs no longer than 2 s.
    ~MciPlayer() override;
    Q_DISABLE_COPY_MOVE(MciPlayer)

    void Play(const QString& path, const QString& alias) override;
    void Stop(const QString& alias) override;
    void Close(const QString& alias) override;
    void CloseAll() override;
    QString Status(const QString& alias) const override;

private:
    void StartThread();

    std::shared_ptr<SoundBoard> board_;
    std::unique_ptr<QThread> thread_;
    MciWorker* worker_ = nullptr; // lives on the thread and ends with it
};

} // namespace paneda
