#pragma once

#include "platform/sound_board.h"

#include <QObject>
#include <QString>

#include <memory>
#include <utility>

namespace paneda {

// Makes the sounds of a ThreadedPlayer, on the player's thread: apart from the constructor all is called
// there, in the order in which the player was asked, and may take its time. Once the thread has been told to
// end, the rest of the calls may never come; so the destructor silences what still sounds.
class SoundWorker : public QObject {
public:
    // Ends what the alias played and plays the file (host path), if the board still wants this ticket. The
    // board is to be told when the sound is over, or that it cannot be played.
    virtual void Play(const QString& path, const QString& alias, int ticket) = 0;
    virtual void Stop(const QString& alias) = 0;
    virtual void Close(const QString& alias) = 0;
    virtual void CloseAll() = 0;
};

template <typename Worker>
std::unique_ptr<SoundWorker> MakeSoundWorker(std::shared_ptr<SoundBoard> board) {
    return std::make_unique<Worker>(std::move(board));
}

} // namespace paneda
