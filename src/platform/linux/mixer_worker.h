#pragma once

#include "platform/linux/sdl_mixer.h"
#include "platform/sound_worker.h"

#include <QTimer>

#include <map>
#include <memory>

namespace paneda {

// Sounds by SDL_mixer: MP3, Ogg, FLAC, WAV, and MIDI where there is a sound font. It is one small library,
// it plays several sounds at once without a process or a cache of plug-ins beside it, and a second one of
// its kind on the same desktop does not disturb it. The library comes with the first sound; the device is
// open only while something sounds and for a short time after.
class MixerWorker final : public SoundWorker {
public:
    explicit MixerWorker(std::shared_ptr<SoundBoard> board);
    ~MixerWorker() override;

    void Play(const QString& path, const QString& alias, int ticket) override;
    // An alias that stays open keeps nothing here.
    void Stop(const QString& alias) override { Close(alias); }
    void Close(const QString& alias) override;
    void CloseAll() override;

private:
    // A sound that plays: read whole into a channel, or streamed, of which there can be one at a time.
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
    bool isLoaded_ = false; // has been tried
    bool isOpen_ = false;
};

} // namespace paneda
