#pragma once

#include "support/fake_prompts.h"
#include "ui/fake_desktop.h"
#include "ui/fake_services.h"
#include "ui/panel/frmMain.h"

namespace paneda::test {

// Everything a panel asks for. Nothing could call it back unless a test says so, so that hiding minimizes it.
class FakePanelDesktop {
public:
    FakeOpener Opened;
    FakeVolumes Drives;
    FakeIcons Icons;
    FakeSpace Space;
    FakeCompositor Blending;
    FakeForeground Front;
    FakeHotkey Keys;
    FakePointer Mouse;
    FakeTrayHosts Trays;
    FakeWorkAreas Areas;
    FakeSounds Sounds;
    NoSatellites Followers;
    FakePrompts Messages;
    MenuActions Menus;

    FakePanelDesktop() { Keys.Stands = Hotkey::Answer::Refused; }

    PanelServices Services() {
        return {Opened, Drives, Icons, Space,  Blending,  Front,    Keys,
                Mouse,  Trays,  Areas, Sounds, Followers, Messages, Menus};
    }
};

} // namespace paneda::test
