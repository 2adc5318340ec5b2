#include "core/panel/triggers.h"

namespace paneda {

namespace {

constexpr double kHoldStep = 0.2; // s, the time between two looks
constexpr double kHoldFires = 0.4;
constexpr double kHoldAfterFiring = -2;
// Twelve steps of 0.2 from -2 fall short of 0.4 by less than this.
constexpr double kRounding = 1e-6;

bool IsCentred(const ToggleInput& input, const AppState& state) {
    return (input.From == Trigger::Mouse ? state.MouseShowCenter : state.HotkeyShowCenter) != 0;
}

WindowPlace CentredOn(WindowPlace cursor, TwipsSize size, const WorkArea& area) {
    return {HeldBetween(cursor.Left - size.Width / 2, size.Width, area.Left, area.Right),
            HeldBetween(cursor.Top - size.Height / 2, size.Height, area.Top, area.Bottom)};
}

// The note lies under the cursor, the panel beside it on the side with more room.
TogglePlan SideBySide(const ToggleInput& input) {
    const WorkArea& area = input.Area;
    const TwipsSize note = input.Note.Size;
    const WindowPlace at = CentredOn(input.Cursor, note, {0, 0, area.Right, area.Bottom});
    const bool noteIsRight = at.Left + note.Width / 2 > (area.Left + area.Right) / 2;
    const int panelTop = at.Top + note.Height / 2 - input.Panel.Height / 2;
    const WindowPlace panel{noteIsRight ? at.Left - input.Panel.Width : at.Left + note.Width,
                            HeldBetween(panelTop, input.Panel.Height, area.Top, area.Bottom)};
    return {TogglePlan::Action::Show, panel, at};
}

} // namespace

bool MouseHoldTick(double& holdCount, bool middleButtonDown, int mode) {
    if (!middleButtonDown) {
        holdCount = 0;
        return false;
    }
    // A click fires on the first look alone, so that a button held down repeats no faster than in mode 2.
    const bool isFirstLook = holdCount == 0;
    holdCount += kHoldStep;
    if (holdCount < kHoldFires - kRounding && !(mode == kMouseClick && isFirstLook))
        return false;
    holdCount = kHoldAfterFiring;
    return true;
}

int HotkeyModifiers(const AppState& state) {
    return (state.HotkeyCtrl ? kHotkeyCtrl : 0) | (state.HotkeyAlt ? kHotkeyAlt : 0) |
           (state.HotkeyShift ? kHotkeyShift : 0) | (state.HotkeyWin ? kHotkeyWin : 0);
}

TogglePlan ToggleByTrigger(const ToggleInput& input, const AppState& state) {
    if (input.OwnWindowActive)
        return {};
    if (!IsCentred(input, state))
        return {TogglePlan::Action::Show, {state.PanelLeft, input.Panel.Top}, {}};
    if (input.Note.Open && !input.Note.Maximized)
        return SideBySide(input);
    const TwipsSize size{input.Panel.Width, input.Panel.Height};
    return {TogglePlan::Action::Show, CentredOn(input.Cursor, size, input.Area), {}};
}

HideMeans HowToHide(const CallBackWays& ways) {
    return ways.Tray || ways.Hotkey || ways.Mouse ? HideMeans::Hide : HideMeans::Minimize;
}

} // namespace paneda
