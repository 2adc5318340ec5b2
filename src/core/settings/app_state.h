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
    // Set by Main, never changed later.

    // Folder of the executable in the stored form, without a trailing backslash unless it is a drive's root.
    QString AppPath;
    // The same folder as the host names it.
    QString AppFolder;
    // Turns stored paths into host paths.
    DriveMap Drives;
    bool CoBrand = false;
    QString ProductName;
    QString ProductVersion;
    QDate BuildDate;
    QString HomepageAddress;
    QString WindowsName;
    int WorkAreaBottom = 0; // twips
    int ColourDepth = 0;    // bits per pixel

    // Run-time flags.
    bool FormLoaded = false;
    bool Exiting = false;
    bool IgnoreCache = false;
    bool NoteWindowOpen = false;
    int CountdownSeconds = 0;

    // From the file `config`.
    DriveTableFlags DriveTable{};
    int PanelTop = 0;  // twips
    int PanelLeft = 0; // twips
    bool Autostart = false;
    double ButtonsPerRow = 5; // units
    QString SkinName;
    bool HideAfterLaunch = false;
    bool MouseTriggerEnabled = false;
    int MouseTriggerMode = 2;
    bool HotkeyEnabled = false;
    bool HotkeyCtrl = false;
    bool HotkeyAlt = false;
    bool HotkeyShift = false;
    bool HotkeyWin = false;
    int HotkeyKey = 0; // virtual key code
    QString UserName;
    bool ShowFeed = true; // kept, no effect
    int FeedHeight = 0;   // twips, kept, no effect
    QString UserId;

    // From setting.ini.
    int SelectedCategory = 0; // index into Catalogue, from 0
    QString Browser;          // "default", or the program that opens web addresses
    bool DriveOfProgram = false;
    bool HideOnStartup = false;
    int SystemTrayIcon = 1;
    int MouseShowCenter = 1;
    int HotkeyShowCenter = 1;
    double TreeOpacity = 1; // fraction above 0
    double TreeOpacityAtLoad = 1;
    int RecentChangeIndicator = 0;
    double NoteOpacity = 0.8; // fraction above 0
    double NoteOpacityAtLoad = 0.8;
    bool NoteMaximized = false;
    bool NoteMaximizedAtLoad = false;
    NoteSettings Note;
    CountdownSettings Countdown;

    // Host folder of the skin, with a separator at its end.
    QString SkinPath;

    CatalogueList Catalogue;
    int TreeCategoryCount = 0;
};

// Copies the row of the edition into the product fields.
void FillEdition(AppState& state);

// What a scan of this store needs to know.
ScanOptions ScanOptionsOf(const AppState& state);

// Name of a Windows release by platform id and version, "Unknown" for all that the table lacks, which are the
// later releases and every other system. The row "1.4.98" stands for a release that calls itself 4.90 and is
// kept.
QString WindowsNameOf(int platformId, int major, int minor);

} // namespace paneda
