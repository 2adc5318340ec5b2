#pragma once

#include <QtGlobal>

#include <memory>

namespace paneda {

// The functions of SDL and its mixer library that we use, with their C types written out: the libraries are
// loaded at run time, and the build does not need them. Their binary interface no longer changes.
struct SdlMixer {
    struct RWops;
    struct Chunk;
    struct Music;

    // SDL. Functions that return int return 0 for success, unless a comment says otherwise.
    int (*SetHint)(const char* name, const char* value);
    int (*InitSubSystem)(quint32 flags);
    void (*QuitSubSystem)(quint32 flags);
    RWops* (*RWFromFile)(const char* utf8Path, const char* mode);

    // The mixer. A null pointer or -1 is a failure; LoadWav reads every format and not just WAV.
    int (*OpenAudio)(int rate, quint16 format, int channels, int chunkSize);
    void (*CloseAudio)();
    int (*AllocateChannels)(int count);
    int (*SetSoundFonts)(const char* utf8Paths);
    Chunk* (*LoadWav)(RWops* source, int closesSource);
    void (*FreeChunk)(Chunk* chunk);
    int (*PlayChannel)(int channel, Chunk* chunk, int loops, int ticks); // the channel
    int (*HaltChannel)(int channel);
    int (*Playing)(int channel); // whether
    Music* (*LoadMusic)(const char* utf8Path);
    void (*FreeMusic)(Music* music);
    int (*PlayMusic)(Music* music, int loops);
    int (*HaltMusic)();
    int (*PlayingMusic)(); // whether

    // Null if the libraries are not installed. They stay loaded.
    static std::unique_ptr<SdlMixer> Load();
};

} // namespace paneda
