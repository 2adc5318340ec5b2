#include "ui/panel/panel_calls.h"

#include <QPointer>

namespace paneda {

namespace {

constexpr int kMouseLook = 200; // milliseconds between two readings of the middle button

} // namespace

PanelCalls::PanelCalls(AppState& state, Hotkey& hotkey, Pointer& pointer, TrayHosts& trays,
                       CallActions actions)
    : state_(state)
    , hotkey_(hotkey)
    , pointer_(pointer)
    , actions_(std::move(actions))
    , tray_(trays, {.Show = actions_.Show, .Countdown = {}, .HostChanged = actions_.WaysChanged}) {
    timer1_.setInterval(kMouseLook);
    connect(&timer1_, &QTimer::timeout, this, &PanelCalls::Timer1_Timer);
}

PanelCalls::~PanelCalls() {
    Stop();
}

void PanelCalls::Start() {
    // The registration outlives this object; without this the hotkey would call a deleted panel.
    const auto pressed = [self = QPointer(this)] {
        if (self)
            self->actions_.Toggle(Trigger::Hotkey);
    };
    if (state_.HotkeyEnabled)
        hotkey_.Register(HotkeyModifiers(state_), state_.HotkeyKey, pressed);
    else
        hotkey_.Unregister();
    if (state_.MouseTriggerEnabled && pointer_.CanSee()) {
        pointer_.WatchMiddleButton(true);
        timer1_.start();
    }
    tray_.InstallTrayIcons(state_);
}

void PanelCalls::Stop() {
    timer1_.stop();
    pointer_.WatchMiddleButton(false);
    tray_.RemoveTrayIcons();
}

CallBackWays PanelCalls::Ways() const {
    return {tray_.IsSeen(), hotkey_.State() == Hotkey::Answer::Registered, timer1_.isActive()};
}

void PanelCalls::Timer1_Timer() {
    if (state_.Exiting)
        timer1_.stop();
    if (mouseTrigger_.Tick(pointer_.LookAtMiddleButton(), state_.MouseTriggerMode))
        actions_.Toggle(Trigger::Mouse);
}

} // namespace paneda
