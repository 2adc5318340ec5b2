#pragma once

#include "core/panel/mouse_trigger.h"
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

// What PanelCalls asks the panel to do.
struct CallActions {
    std::function<void(Trigger)> Toggle;
    std::function<void()> Show;
    // The tray has appeared or disappeared, so Ways() has changed.
    std::function<void()> WaysChanged;
};

// The ways to call a hidden panel: hotkey, middle mouse button, tray icon. Each load of the panel makes a new
// object.
class PanelCalls : public QObject {
    Q_OBJECT

public:
    PanelCalls(AppState& state, Hotkey& hotkey, Pointer& pointer, TrayHosts& trays, CallActions actions);
    ~PanelCalls() override;

    // Begins to listen as the settings ask, and unregisters a hotkey that was switched off since the last
    // load. If the hotkey cannot be registered it never fires; no error is shown.
    void Start();

    // Stops listening and removes the tray icon. The hotkey stays registered, without effect, until the Start
    // of the next panel: most reloads keep the same hotkey, and some desktops ask the user at each
    // registration. When the program ends, the caller has to unregister it.
    void Stop();

    // What could bring a hidden panel back now.
    CallBackWays Ways() const;

private:
    void Timer1_Timer();

    AppState& state_;
    Hotkey& hotkey_;
    Pointer& pointer_;
    CallActions actions_;
    TrayPresence tray_;
    QTimer timer1_; // reads the middle button
    MouseTrigger mouseTrigger_;
};

} // namespace paneda
