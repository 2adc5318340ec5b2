#pragma once

#include "core/settings/app_state.h"

#include <QStringList>

namespace paneda {

// The screens of the credits in their order, each of one to three lines joined by CR LF. The last is empty.
QStringList CreditScreens(const AppState& state);

// The number, from 1, of the screen that is held longest and starts the music.
inline constexpr int kCreditMusicScreen = 4;

// Where the credits stand.
struct CreditFade {
    enum class Phase { FadeIn, FadeOut };

    int Screen = 0;     // from 0
    int Brightness = 0; // grey value of the text, 0 to 255
    Phase What = Phase::FadeIn;
    bool MusicStarted = false;
};

// What one tick asks for besides the text and the brightness.
struct CreditStep {
    int Interval = 0; // milliseconds to the next tick
    bool StartMusic = false;
    bool Finished = false; // the last screen has gone; the next tick begins with the first one
};

// One tick of the credits: the brightness moves by 25, and at its ends the screen is held or the next one
// comes.
CreditStep TickCredits(CreditFade& fade, int screenCount);

} // namespace paneda
