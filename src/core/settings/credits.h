#pragma once

#include "core/settings/app_state.h"

#include <QStringList>

namespace paneda {

// The screens of the credits in their order. Each has one to three lines, joined by CR LF; the last is empty.
QStringList CreditScreens(const AppState& state);

// The number, counted from 1, of the screen that is shown longest and starts the music.
inline constexpr int kCreditMusicScreen = 4;

// How far the credits have run.
struct CreditFade {
    enum class Phase { FadeIn, FadeOut };

    int Screen = 0;     // from 0
    int Brightness = 0; // grey value of the text, 0 to 255
    Phase What = Phase::FadeIn;
    bool MusicStarted = false;
};

// What the window does after a tick, besides showing text and brightness.
struct CreditStep {
    int Interval = 0; // milliseconds to the next tick
    bool StartMusic = false;
    bool Finished = false; // the last screen has ended; the next tick shows the first one
};

// One tick of the credits. Changes the brightness by 25. At full brightness the screen is shown for a while;
// when it is dark again the next screen follows.
CreditStep TickCredits(CreditFade& fade, int screenCount);

} // namespace paneda
