#pragma once

#include "platform/linux/sdl_mixer.h"
#include "platform/sound_worker.h"

#include <QTimer>

#include <map>
#include <memory>

namespace paneda {

// Plays sounds with SDL_mixer: MP3, Ogg, FLAC, WAV, and MIDI if there is a sound font. SDL_mixer is small,
// plays several sounds at once, and needs neither a helper process nor a cache of plug-ins. The library is
// loaded for the first sound. The device is open only while a sound plays and 5 s longer.
class MixerWorker final : public SoundWorker {
public:
    explicit MixerWorker(std::shared_ptr<SoundBoard> board);
    ~MixerWorker() override;

    void Play(const QString& path, const QString& alias, int ticket) override;
    // Does nothing: an alias that stays open needs no data here.
    void Stop(const QString& alias) override { Close(alias); }
    void Close(const QString& alias) override;
    void CloseAll() override;

private:
    // A sound that plays: either read whole into a channel, or streamed. Only one sound can be streamed at a
    // time.
    struct Voice {
        int Ticket = 0;
        int Channel = -1;
        SdlMixer::Chunk* Chunk = nullptr;
        SdlMixer::Music* Music = nullptr;
    };

    bool OpenDevice();
    void CloseDevice();
    bool Start(const QString& path, Voice& voice);
    bool Stream(const QByteArray& path, Voice& voice);
    void End(const Voice& voice);
    bool IsOver(const Voice& voice) const;
    bool MayStream() const;
    void Look();

    std::shared_ptr<SoundBoard> board_;
    std::unique_ptr<SdlMixer> mixer_;
    std::map<QString, Voice> voices_;
    QTimer look_;
    QTimer close_;
    bool isLoaded_ = false; // true after the first attempt, even if it failed
    bool isOpen_ = false;
};

} // namespace paneda
