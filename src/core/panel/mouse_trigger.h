#pragma once

#include <QtGlobal>

#include <optional>
#include <vector>

namespace paneda {

// Values of AppState::MouseTriggerMode. Any other value counts as kMouseDoubleClickOrHold.
enum MouseTriggerMode { kMouseClick = 1, kMouseDoubleClickOrHold = 2 };

// What one look at the middle button shows.
struct MiddleButtonLook {
    bool IsDown = false; // at the moment of the look
    // When the button was pressed since the last look: milliseconds on a clock that starts anywhere and wraps
    // around at 2^32. A press that began and ended between two looks is among them. Empty where the system
    // tells no times.
    std::vector<quint32> Presses;
    // Milliseconds by which a press may have been earlier than its time says; 0 for exact times.
    quint32 Uncertainty = 0;
};

// Decides from looks every 200 ms when the middle button calls the panel. In click mode a single press does;
// in the other mode two presses at most 500 ms apart do, or a button that is down at two looks in a row. A
// button that stays down calls again after twelve more looks (2.4 s), in both modes.
class MouseTrigger {
public:
    // True when the panel is to be called.
    bool Tick(const MiddleButtonLook& look, int mode);

private:
    bool TakeDoubleClick(const MiddleButtonLook& look);

    double holdCount_ = 0;             // seconds that the button has been down
    std::optional<quint32> lastPress_; // one that may become the first of a double click
};

} // namespace paneda
