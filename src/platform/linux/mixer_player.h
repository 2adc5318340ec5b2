#pragma once

#include "platform/sound_board.h"
#include "platform/sound_player.h"

#include <QThread>

#include <memory>

namespace paneda {

class SoundWorker;

// Sounds by SDL_mixer: MP3, Ogg, FLAC, WAV, and MIDI where there is a sound font. It is one small library,
// it plays several sounds at once without a process or a cache of plug-ins beside it, and a second one of
// its kind on the same desktop does not disturb it. Thread and library come with the first sound.
class MixerPlayer : public SoundPlayer {
public:
    MixerPlayer();
    // Waits for a device that hangs no longer than 2 s.
    ~MixerPlayer() override;
    Q_DISABLE_COPY_MOVE(MixerPlayer)

    void Play(const QString& path, const QString& alias) override;
    void Stop(const QString& alias) override;
    void Close(const QString& alias) override;
    void CloseAll() override;
    QString Status(const QString& alias) const override;

private:
    void StartThread();
    void Silence(const QString& alias);

    std::shared_ptr<SoundBoard> board_;
    std::unique_ptr<QThread> thread_;
    SoundWorker* worker_ = nullptr; // lives on the thread and ends with it
};

} // namespace paneda
