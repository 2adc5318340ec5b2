#pragma once

#include "core/panel/window_places.h"
#include "core/settings/app_state.h"

#include <optional>

namespace paneda {

// How a hidden panel is called, and what a call does. (Where windows stand, snapping included, is decided in
// window_places.h.) All measures are twips. Nothing here looks at a window: callers say what they see.

enum class Trigger { Hotkey = 'K', Mouse = 'M' };

// Bits of the modifier word, with the numbers of the Windows hotkey call.
enum HotkeyModifier { kHotkeyAlt = 1, kHotkeyCtrl = 2, kHotkeyShift = 4, kHotkeyWin = 8 };

int HotkeyModifiers(const AppState& state);

// The note window, as far as the panel's place depends on it.
struct NoteWindowState {
    bool Open = false;
    bool Maximized = false;
    TwipsSize Size;
};

struct ToggleInput {
    Trigger From = Trigger::Hotkey;
    // The panel, its tree window or its note window has the focus.
    bool OwnWindowActive = false;
    WorkArea Area;
    WindowPlace Cursor;
    TwipsRect Panel; // where the window stands, seen or not
    NoteWindowState Note;
};

struct TogglePlan {
    enum class Action { Hide, Show };

    Action What = Action::Hide;
    // For Show: where the panel goes. The tree window follows by its offset.
    WindowPlace Panel;
    // The note window moves as well, to stand beside the panel.
    std::optional<WindowPlace> Note;

    friend bool operator==(const TogglePlan&, const TogglePlan&) = default;
};

// What a trigger does: hides a panel that has the focus, else shows it at its saved left or centred on the
// cursor, as the settings say for this trigger. A place that it chooses is not to be saved.
TogglePlan ToggleByTrigger(const ToggleInput& input, const AppState& state);

// What could call a hidden panel back on this desktop, as it is now.
struct CallBackWays {
    bool Tray = false;   // a tray shows the program's icon
    bool Hotkey = false; // the hotkey is registered
    bool Mouse = false;  // the mouse trigger is on, and the desktop lets the program see the button
};

enum class HideMeans { Hide, Minimize };

// A panel that nothing could call back is minimized instead, so that it stays in the desktop's list of
// windows.
HideMeans HowToHide(const CallBackWays& ways);

} // namespace paneda
