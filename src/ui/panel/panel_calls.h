#pragma once

#include "core/panel/triggers.h"
#include "core/settings/app_state.h"
#include "platform/hotkey.h"
#include "platform/pointer.h"
#include "platform/tray_hosts.h"
#include "ui/panel/tray_presence.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace paneda {

// What the ways to call the panel do.
struct CallActions {
    std::function<void(Trigger)> Toggle;
    std::function<void()> Show;
    // The tray has come or gone, and the ways with it.
    std::function<void()> WaysChanged;
};

// The ways to call a hidden panel: hotkey, middle mouse button, tray icon. One object for each load of the
// panel.
class PanelCalls : public QObject {
    Q_OBJECT

public:
    PanelCalls(AppState& state, Hotkey& hotkey, Pointer& pointer, TrayHosts& trays, CallActions actions);
    ~PanelCalls() override;

    // Begins to listen, as the settings say. A hotkey that cannot be had does not fire, and nothing is told.
    void Start();

    // Ends listening and removes the tray icon. The hotkey stays registered, since a panel that is loaded
    // anew wants the same one, and a desktop that asks its user would ask again; who ends the program
    // unregisters it.
    void Stop();

    // What could call the panel back at present.
    CallBackWays Ways() const;

private:
    void Timer1_Timer();

    AppState& state_;
    Hotkey& hotkey_;
    Pointer& pointer_;
    CallActions actions_;
    TrayPresence tray_;
    QTimer timer1_; // the looks at the middle button
    double mouseHoldCount_ = 0;
};

} // namespace paneda
