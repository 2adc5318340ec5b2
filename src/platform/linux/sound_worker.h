#pragma once

#include "platform/linux/sdl_mixer.h"
#include "platform/sound_board.h"

#include <QObject>
#include <QTimer>

#include <map>
#include <memory>

namespace paneda {

// Makes the sounds, on a thread of its own: loading the library, opening the device and reading a file may
// each take long. The device is open only while something sounds and for a short time after.
class SoundWorker : public QObject {
public:
    explicit SoundWorker(std::shared_ptr<SoundBoard> board);
    ~SoundWorker() override;

    void Play(const QString& path, const QString& alias, int ticket);
    void Silence(const QString& alias);
    void SilenceAll();

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
