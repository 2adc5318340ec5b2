#pragma once

#include "core/disk/disk_path.h"
#include "core/settings/app_state.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace paneda {

// Which note, and in which tree. Host paths.
struct NotePlace {
    QString NoteFolder; // empty: no note
    QString TreeRoot;   // the tree's content folder
    bool MultiUser = false;

    // Links within the tree are refused.
    DiskPath Folder() const { return DiskPath::Below(TreeRoot, NoteFolder); }
};

// Who works on notes, when, and with which settings.
struct NoteSession {
    QString UserName;
    QDateTime Now; // local time
    NoteSettings Settings;
    int PanelHeight = 0; // pixels
};

// A note's height in pixels where it has none of its own: the panel's, but at least that of the settings.
int DefaultNoteHeight(const NoteSession& session);

// The note's folder and all above it, up to the tree's content folder, which comes last. Only the note's
// folder if that is not below the content folder.
std::vector<DiskPath> FoldersUpToRoot(const NotePlace& place);

// "yyyy-mm-dd" and "hh:mm:ss", the forms in which all keys hold them.
QString KeyDate(const QDateTime& time);
QString KeyTime(const QDateTime& time);

} // namespace paneda
