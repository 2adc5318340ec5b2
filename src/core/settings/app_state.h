#pragma once

#include "core/files/drive_map.h"
#include "core/store/catalogue_loader.h"

#include <QDate>
#include <QString>

namespace paneda {

// Settings of the notes, kept in setting.ini. Numbers lie in the ranges of core/text/ranges.h.
struct NoteSettings {
    int Width = 500;      // pixels
    int Height = 500;     // pixels
    int CompressSize = 0; // kilobytes; 0 compresses no note
    QString FontName;
    double FontSize = 10; // points
};

// Settings of the countdown, kept in setting.ini.
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

// The one state of the program. Main makes it and passes it by reference to everything that needs it.
struct AppState {
    // Set once by Main, before the panel is made.

    // Folder of the executable in the stored form. It ends with a backslash only if it is the root of a
    // drive.
    QString AppPath;
    // The same folder as a host path.
    QString AppFolder;
    bool CoBrand = false; // true for the other edition, with its own name and address; no build sets it
    QString ProductName;
    QString ProductVersion;
    QDate BuildDate;
    QString HomepageAddress;

    // Set by the panel, and by the windows that reload it or end the program.

    // Turns stored paths into host paths. New volumes are added at each launch.
    DriveMap Drives;
    bool Exiting = false;     // the user has chosen to end the program
    bool IgnoreCache = false; // the next load scans the store
    CatalogueList Catalogue;
    int SelectedCategory = 0; // index into Catalogue, from 0; setting.ini
    int PanelTop = 0;         // twips; as PanelLeft in `config`
    int PanelLeft = 0;        // twips

    // Set by the settings dialogs and kept in `config`.
    DriveTableFlags DriveTable{};
    bool Autostart = false;
    double ButtonsPerRow = 5; // in widths of a full-size button
    QString SkinName;
    bool HideAfterLaunch = false;
    bool MouseTriggerEnabled = false;
    int MouseTriggerMode = 2; // see MouseTriggerMode in core/panel/triggers.h
    bool HotkeyEnabled = false;
    bool HotkeyCtrl = false;
    bool HotkeyAlt = false;
    bool HotkeyShift = false;
    bool HotkeyWin = false;
    int HotkeyKey = 0; // virtual key code; 0 for no key
    QString UserName;
    bool ShowFeed = true; // stored, without effect
    int FeedHeight = 0;   // twips; stored, without effect
    QString UserId;

    // Set by the settings dialogs and kept in setting.ini.
    QString Browser;             // "default", or the program that opens web addresses
    bool DriveOfProgram = false; // whether the drive that the program runs from has a button
    bool HideOnStartup = false;
    int SystemTrayIcon = 1;   // number of its picture, from 1
    int MouseShowCenter = 1;  // 1: a call by the mouse shows the panel at the cursor
    int HotkeyShowCenter = 1; // 1: a call by the hotkey does the same

    // Trees and notes, kept in setting.ini. `AtLoad` is the value in the file; at exit only changed values
    // are written.
    double TreeOpacity = 1; // fraction above 0
    double TreeOpacityAtLoad = 1;
    int RecentChangeIndicator = 0;
    double NoteOpacity = 0.8; // fraction above 0
    double NoteOpacityAtLoad = 0.8;
    bool NoteMaximized = false;
    bool NoteMaximizedAtLoad = false;
    NoteSettings Note;

    // The countdown.
    CountdownSettings Countdown;
};

// Sets name, version, date and address of the product for the edition that CoBrand names.
void FillEdition(AppState& state);

// The options of a scan of this store.
ScanOptions ScanOptionsOf(const AppState& state);

} // namespace paneda
