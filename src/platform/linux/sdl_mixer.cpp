#include "platform/linux/sdl_mixer.h"

#include <QLibrary>

namespace paneda {

namespace {

template <class Function>
bool Resolve(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

} // namespace

std::unique_ptr<SdlMixer> SdlMixer::Load() {
    QLibrary sdl(QStringLiteral("SDL2-2.0"), 0);
    QLibrary mixer(QStringLiteral("SDL2_mixer-2.0"), 0);
    auto api = std::make_unique<SdlMixer>();
    const bool complete =
        Resolve(sdl, "SDL_SetHint", api->SetHint) && Resolve(sdl, "SDL_InitSubSystem", api->InitSubSystem) &&
        Resolve(sdl, "SDL_QuitSubSystem", api->QuitSubSystem) &&
        Resolve(sdl, "SDL_RWFromFile", api->RWFromFile) && Resolve(mixer, "Mix_OpenAudio", api->OpenAudio) &&
        Resolve(mixer, "Mix_CloseAudio", api->CloseAudio) &&
        Resolve(mixer, "Mix_AllocateChannels", api->AllocateChannels) &&
        Resolve(mixer, "Mix_SetSoundFonts", api->SetSoundFonts) &&
        Resolve(mixer, "Mix_LoadWAV_RW", api->LoadWav) && Resolve(mixer, "Mix_FreeChunk", api->FreeChunk) &&
        Resolve(mixer, "Mix_PlayChannelTimed", api->PlayChannel) &&
        Resolve(mixer, "Mix_HaltChannel", api->HaltChannel) && Resolve(mixer, "Mix_Playing", api->Playing) &&
        Resolve(mixer, "Mix_LoadMUS", api->LoadMusic) && Resolve(mixer, "Mix_FreeMusic", api->FreeMusic) &&
        Resolve(mixer, "Mix_PlayMusic", api->PlayMusic) && Resolve(mixer, "Mix_HaltMusic", api->HaltMusic) &&
        Resolve(mixer, "Mix_PlayingMusic", api->PlayingMusic);
    return complete ? std::move(api) : nullptr;
}

} // namespace paneda
