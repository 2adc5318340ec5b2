#pragma once

#include <QString>

namespace paneda {

// Plays sound files. Sounds with different aliases play at the same time; a new sound ends the one before it
// with the same alias. All calls return at once and report no errors: a file that cannot be played is silent.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    // Ends the alias's sound and plays the file (host path) from its beginning.
    virtual void Play(const QString& path, const QString& alias) = 0;

    // Ends the sound; the alias stays open.
    virtual void Stop(const QString& alias) = 0;

    // Ends the sound and closes the alias.
    virtual void Close(const QString& alias) = 0;
    virtual void CloseAll() = 0;

    // "playing" from the call of Play until the sound ends, "stopped" after that. Empty for an alias that is
    // not open and for one whose file could not be played.
    virtual QString Status(const QString& alias) const = 0;
};

} // namespace paneda
