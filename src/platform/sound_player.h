#pragma once

#include <QString>

namespace paneda {

// Plays sound files. An alias names a voice: sounds of different aliases sound at once, a new one under an
// alias ends the old one. Nothing blocks and nothing is reported: what cannot be played stays silent.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    // Ends what the alias played and plays the file (host path) from its begin.
    virtual void Play(const QString& path, const QString& alias) = 0;

    // Silences the alias, which stays open.
    virtual void Stop(const QString& alias) = 0;

    // Silences the alias and forgets it.
    virtual void Close(const QString& alias) = 0;
    virtual void CloseAll() = 0;

    // "playing" from the call of Play until the sound is over, "stopped" after that; empty for an alias that
    // is not open, and for one whose file could not be played.
    virtual QString Status(const QString& alias) const = 0;
};

} // namespace paneda
