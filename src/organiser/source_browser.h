#pragma once

#include "core/files/drive_map.h"
#include "core/files/sources.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace paneda {

// The browser in which the user looks for what is to become a button. A folder of a source is a text of names
// with a backslash behind each ("Games\Old\"; in My Computer "C:\Tools\"), empty for the source's root.

// In front of the names of folders and drives.
inline const QString kFolderMarker = QStringLiteral("> ");

// One line of the browser's list.
struct BrowserEntry {
    QString Name;
    QString Marker;    // kFolderMarker for a folder or drive, else empty
    QString Shown;     // Marker and Name
    QString SortKey;   // in capitals; folders come first
    QString FullPath;  // stored form; empty for a folder that exists in the source alone
    QString Hint = {}; // of a drive: where it lies, on a host without drive letters

    bool IsFolder() const { return !Marker.isEmpty(); }
};

// What Add does with the selected file.
enum class SourceOption {
    Copy,       // a copy of it in the store
    Move,       // likewise, and the file is deleted
    LinkFile,   // a record that names it
    LinkFolder, // a record that names the folder that is open
    LinkUrl     // as Copy; for web addresses
};

// The path of a folder with a backslash at its end. Empty for a file, and for a folder that exists in the
// source alone.
QString FolderPath(const BrowserEntry& entry);

BrowserEntry MakeEntry(const SourceItem& item, const DriveMap& drives);

// The drives from C to V that hold a medium, in the order of their letters. `hasMedium` gets the host folder
// of a drive.
std::vector<BrowserEntry> DriveEntries(const DriveMap& drives,
                                       const std::function<bool(const QString& root)>& hasMedium);

// The lines of a folder, sorted. A name that both halves hold is shown once, with the path of the public one.
// Names that hold "?" are left out, since no store can take them; in My Computer they are shown.
std::vector<BrowserEntry> FolderEntries(const SourceListing& listing, Source source, const DriveMap& drives);

// The folder as the line above the list shows it, "C: \ Tools", and the tool tip of that line.
QString FolderText(const QString& folder);
QString FolderToolTip(const QString& folder);

// The folder that a click into this text means: all up to the name that was clicked at. `caret` counts
// characters from 0.
QString FolderAtCaret(const QString& text, int caret);

// The folder above; the source's root for the root itself.
QString FolderAbove(const QString& folder);

// A folder by its name in another one.
QString FolderIn(const QString& folder, const QString& name);

// What is shown of the selected line.
struct SelectedSource {
    QString Label = QStringLiteral("File :"); // in front of the options
    QString ToolTip = {};                     // of that label
    QString TypeLabel = {};                   // empty: neither icon nor type is shown
    bool IsPicture = false;                   // the icon is the picture itself
    std::optional<SourceOption> Option = {};  // to be selected; nothing: the present one stays
};

// `entry` is null when nothing is selected. `canLinkFolder`: whether the entry, or else the open folder, can
// become a button by LinkFolder.
SelectedSource LookAtSelected(const BrowserEntry* entry, bool canLinkFolder);

// What a file becomes unless the user chooses something else.
SourceOption UsualOption(const QString& name);

} // namespace paneda
