#pragma once

#include "core/settings/app_state.h"
#include "core/text/twips.h"

#include <optional>
#include <vector>

namespace paneda {

// How a hidden panel is called, and where it and its satellites come to stand. All measures are twips; pixels
// are turned into them before, and back after. Nothing here looks at a window: callers tell what they see.

// The part of a screen that the desktop leaves to windows.
struct WorkArea {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    friend bool operator==(const WorkArea&, const WorkArea&) = default;
};

// A window's top left corner.
struct WindowPlace {
    int Left = 0;
    int Top = 0;

    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

enum class Trigger { Hotkey = 'K', Mouse = 'M' };

// Values of AppState::MouseTriggerMode.
enum MouseTriggerMode { kMouseClick = 1, kMouseDoubleClickOrHold = 2 };

// One look at the middle button, 200 ms after the last one. True when the trigger fires. `holdCount` starts
// at 0. A button that stays down fires again after twelve more looks, in both modes.
bool MouseHoldTick(double& holdCount, bool middleButtonDown, int mode);

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

// The saved place, moved so that the panel passes neither the right nor the bottom edge.
WindowPlace HeldToFarEdges(WindowPlace saved, TwipsSize panel, const WorkArea& area);

// The place of a panel that has been dragged: an edge within 300 twips inside the same edge of the work area
// snaps to it, left and top first. Beyond the work area nothing snaps.
WindowPlace SnapToEdges(const TwipsRect& panel, const WorkArea& area);

// What a satellite window is placed by: the panel and the screen that it stands on.
struct PlaceScene {
    TwipsRect Panel;
    TwipsSize Screen;
    int WorkAreaBottom = 0;
    WindowPlace ScreenOrigin{}; // the screen's corner on the desktop that all screens share
};

// The border label that a placed window shows, on its side away from the panel. Only mode 3 decides it.
enum class BorderLabel { AsItIs, Left, Right };

struct PlacedWindow {
    WindowPlace Place;
    BorderLabel Border = BorderLabel::AsItIs;

    friend bool operator==(const PlacedWindow&, const PlacedWindow&) = default;
};

// Places a window beside the panel with a gap of `extra`: at its left when the panel stands in the right half
// of the screen, else at its right. Mode 1 centres it on the screen's height, 2 aligns the tops, 3 centres it
// on the panel; any other mode leaves the top alone.
PlacedWindow PlaceWindow(const TwipsRect& window, int mode, int extra, const PlaceScene& scene);

// The area that holds the point, else the one nearest to it. An empty area when there are none.
WorkArea NearestArea(const std::vector<WorkArea>& areas, WindowPlace point);

// A saved place on a screen that is gone: unless enough of the panel to grab it lies on some area, it is
// moved into the nearest one. Without areas the place stays.
WindowPlace BringIntoView(WindowPlace saved, TwipsSize panel, const std::vector<WorkArea>& areas);

// What could call a hidden panel back on this desktop, as it is now.
struct CallBackWays {
    bool Tray = false;   // a tray icon is to be seen
    bool Hotkey = false; // the hotkey could be had
    bool Mouse = false;  // the mouse trigger is on and the desktop lets the button be seen
};

enum class HideMeans { Hide, Minimize };

// A panel that nothing could call back is minimized, so that it stays in the list of windows.
HideMeans HowToHide(const CallBackWays& ways);

} // namespace paneda
