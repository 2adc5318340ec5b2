#include "core/panel/triggers.h"

namespace paneda {

namespace {

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
