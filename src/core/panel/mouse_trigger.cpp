#include "core/panel/mouse_trigger.h"

namespace paneda {

namespace {

constexpr double kHoldStep = 0.2; // s, the time between two looks
constexpr double kHoldFires = 0.4;
constexpr double kHoldAfterFiring = -2;
// Twelve steps of 0.2 from -2 fall short of 0.4 by less than this.
constexpr double kRounding = 1e-6;
// ms; the value that Windows has until its user chooses another one.
constexpr quint32 kDoubleClick = 500;

} // namespace

bool MouseTrigger::TakeDoubleClick(const MiddleButtonLook& look) {
    bool found = false;
    for (const quint32 press : look.Presses) {
        if (lastPress_ && press - *lastPress_ <= kDoubleClick + look.Uncertainty) {
            found = true;
            // A third press begins the next double click.
            lastPress_.reset();
        } else {
            lastPress_ = press;
        }
    }
    return found;
}

bool MouseTrigger::Tick(const MiddleButtonLook& look, int mode) {
    const bool isDoubleClick = TakeDoubleClick(look);
    if (!look.IsDown && look.Presses.empty()) {
        holdCount_ = 0;
        return false;
    }
    // In click mode only the first look of several in a row counts as a click: a button that is held must not
    // repeat faster than in the other mode, and a double click must not call the panel and hide it again.
    const bool isFirstLook = holdCount_ == 0;
    holdCount_ += kHoldStep;
    const bool isHeld = holdCount_ >= kHoldFires - kRounding;
    if (!isHeld && !(mode == kMouseClick ? isFirstLook : isDoubleClick))
        return false;
    holdCount_ = kHoldAfterFiring;
    lastPress_.reset();
    return true;
}

} // namespace paneda
