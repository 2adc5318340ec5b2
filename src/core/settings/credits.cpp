#include "core/settings/credits.h"

#include "core/text/english_dates.h"

#include <algorithm>

namespace paneda {

namespace {

constexpr int kBrightnessStep = 25;
constexpr int kBrightest = 255;
// Milliseconds.
constexpr int kFadeInterval = 1;
constexpr int kHold = 800;
constexpr int kLongHold = 2000;
constexpr int kPause = 200;

CreditStep TickFadeIn(CreditFade& fade) {
    fade.Brightness = std::min(fade.Brightness + kBrightnessStep, kBrightest);
    if (fade.Brightness < kBrightest)
        return {kFadeInterval};
    fade.What = CreditFade::Phase::FadeOut;
    if (fade.Screen + 1 != kCreditMusicScreen)
        return {kHold};
    const bool first = !fade.MusicStarted;
    fade.MusicStarted = true;
    return {kLongHold, first};
}

} // namespace

QStringList CreditScreens(const AppState& state) {
    const QStringList screens = {
        QStringLiteral("I have a dream"),
        QStringLiteral("A dream of a freeware....."),
        QStringLiteral("....to make my desktop clean"),
        state.ProductName + QStringLiteral("\nVersion ") + state.ProductVersion + QStringLiteral("\nBuilt ") +
            BuiltDateText(state.BuildDate),
        QStringLiteral("A button for everything you start,\nsorted into categories and groups"),
        QStringLiteral("It comes when you call\nand steps aside when you are done"),
        QStringLiteral("Skins to dress it,\nnotes to remember by,\na clock that counts down"),
        QStringLiteral("All of it in one folder\nthat travels with you"),
        QStringLiteral(
            "Thanks to all who tried it,\nto all who told what was wrong,\nand to you for using it"),
        QStringLiteral("May Paneda be with you"),
        QStringLiteral("Have a nice day :-)"),
        QString(),
    };
    return QStringList(screens).replaceInStrings(QStringLiteral("\n"), QStringLiteral("\r\n"));
}

CreditStep TickCredits(CreditFade& fade, int screenCount) {
    if (fade.What == CreditFade::Phase::FadeIn)
        return TickFadeIn(fade);
    fade.Brightness = std::max(fade.Brightness - kBrightnessStep, 0);
    if (fade.Brightness > 0)
        return {kFadeInterval};
    fade.What = CreditFade::Phase::FadeIn;
    fade.Screen = (fade.Screen + 1) % screenCount;
    return {kPause, false, fade.Screen == 0};
}

} // namespace paneda
