#pragma once

#include "core/files/drive_map.h"
#include "core/store/catalogue_loader.h"

#include <QDate>
#include <QString>

namespace paneda {

// The keys of setting.ini that the notes and the countdown own.
struct NoteSettings {
    int Width = 500;  // pixels, at least 500
    int Height = 500; // pixels, at least 500
    int CompressSize = 0;
    QString FontName;
    double FontSize = 10; // points
};

struct CountdownSettings {
    int IconType = 2;
    int MessageIcon = 3;
    int MessageStyle = 3;
    int NoMessageIconAfterStop = 1;
    QString PopupWindow;
    QString LaunchFile;
    QString LaunchFileName;
    QString Sound;
    QString DateTime;
    QString Message;
};

// The one record that the whole process shares. Main makes it and passes it on by reference.
struct AppState {
    // Main: set once, before the panel is made.

    // Folder of the executable in the stored form, without a trailing backslash unless it is a drive's root.
    QString AppPath;
    // The same folder as the host names it.
    QString AppFolder;
    bool CoBrand = false; // another edition's name and address; no build sets it
    QString ProductName;
    QString ProductVersion;
    QDate BuildDate;
    QString HomepageAddress;

    // The panel: what it loads and shows, and the windows that reload or end it.

    // Turns stored paths into host paths. Knows more volumes after each launch.
    DriveMap Drives;
    bool Exiting = false;     // the user has chosen to end the program
    bool IgnoreCache = false; // the next load scans the store
    CatalogueList Catalogue;
    int SelectedCategory = 0; // index into Catalogue, from 0; setting.ini
    int PanelTop = 0;         // twips; as PanelLeft in `config`
    int PanelLeft = 0;        // twips

    // The settings dialogs: kept in `config`.
    DriveTableFlags DriveTable{};
    bool Autostart = false;
    double ButtonsPerRow = 5; // units
    QString SkinName;
    bool HideAfterLaunch = false;
    bool MouseTriggerEnabled = false;
    int MouseTriggerMode = 2; // see MouseTriggerMode in core/panel/triggers.h
    bool HotkeyEnabled = false;
    bool HotkeyCtrl = false;
    bool HotkeyAlt = false;
    bool HotkeyShift = false;
    bool HotkeyWin = false;
    int HotkeyKey = 0; // virtual key code
    QString UserName;
    bool ShowFeed = true; // kept, no effect
    int FeedHeight = 0;   // twips; kept, no effect
    QString UserId;

    // The settings dialogs: kept in setting.ini.
    QString Browser;             // "default", or the program that opens web addresses
    bool DriveOfProgram = false; // a button for the drive that the program runs from
    bool HideOnStartup = false;
    int SystemTrayIcon = 1;   // number of its picture, from 1
    int MouseShowCenter = 1;  // not 0: called by the mouse, the panel comes up at the cursor
    int HotkeyShowCenter = 1; // not 0: likewise for the hotkey

    // Trees and notes: kept in setting.ini. `AtLoad` is what the file holds: only a change is written.
    double TreeOpacity = 1; // fraction above 0
    double TreeOpacityAtLoad = 1;
    int RecentChangeIndicator = 0;
    double NoteOpacity = 0.8; // fraction above 0
    double NoteOpacityAtLoad = 0.8;
    bool NoteMaximized = false;
    bool NoteMaximizedAtLoad = false;
    NoteSettings Note;

    // The countdown: kept in setting.ini.
    CountdownSettings Countdown;
};

// Copies the row of the edition into the product fields.
void FillEdition(AppState& state);

// What a scan of this store needs to know.
ScanOptions ScanOptionsOf(const AppState& state);

} // namespace paneda
