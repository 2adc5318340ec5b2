#pragma once

#include "support/fake_prompts.h"
#include "ui/fake_desktop.h"
#include "ui/fake_services.h"
#include "ui/panel/frmMain.h"

#include <QTextDocumentFragment>
#include <QToolTip>

namespace paneda::test {

// The text of the tool tip as it is shown; empty when none is shown.
inline QString ShownTip() {
    const QString text = QToolTip::isVisible() ? QToolTip::text() : QString();
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

// Everything a panel asks for. Nothing could call it back unless a test says so, so that hiding minimizes it.
class FakePanelDesktop {
public:
    FakeOpener Opener;
    FakeVolumes Volumes;
    FakeIcons FileIcons;
    FakeSpace DriveSpace;
    FakeCompositor Compositor;
    FakeForeground Foreground;
    FakeHotkey Hotkey;
    FakePointer Pointer;
    FakeTrayHosts TrayHosts;
    FakeWorkAreas WorkAreas;
    FakeSounds SoundPlayer;
    NoSatellites Satellites;
    FakePrompts Prompts;
    paneda::MenuActions MenuActions;

    PanelServices Services() {
        return {.Opener = Opener,
                .Volumes = Volumes,
                .FileIcons = FileIcons,
                .DriveSpace = DriveSpace,
                .Compositor = Compositor,
                .Foreground = Foreground,
                .Hotkey = Hotkey,
                .Pointer = Pointer,
                .TrayHosts = TrayHosts,
                .WorkAreas = WorkAreas,
                .SoundPlayer = SoundPlayer,
                .Satellites = Satellites,
                .Prompts = Prompts,
                .MenuActions = MenuActions};
    }
};

} // namespace paneda::test
