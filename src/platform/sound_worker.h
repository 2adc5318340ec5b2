#pragma once

#include "platform/sound_board.h"

#include <QObject>
#include <QString>

#include <memory>
#include <utility>

namespace paneda {

// Plays the sounds of a ThreadedPlayer on the player's thread. All functions but the constructor are called
// there, in the order of the player's calls, and may take long. When the thread is about to end, calls that
// still wait may be dropped; so the destructor ends all sounds.
class SoundWorker : public QObject {
public:
    // Ends the alias's sound and plays the file (host path), if the board still wants this ticket. The worker
    // calls the board's End when the sound has ended, or Fail if it cannot be played.
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
