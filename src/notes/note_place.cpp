#include "notes/note_place.h"

#include <algorithm>

namespace paneda {

int DefaultNoteHeight(const NoteSession& session) {
    return std::max(session.PanelHeight, session.Settings.Height);
}

std::vector<DiskPath> FoldersUpToRoot(const NotePlace& place) {
    DiskPath folder = place.Folder();
    std::vector<DiskPath> folders{folder};
    while (folder.RefusesLinks() && !folder.IsRoot() && folder.NamesBelowRoot()) {
        folder = folder.Parent();
        folders.push_back(folder);
    }
    return folders;
}

QString KeyDate(const QDateTime& time) {
    return time.toString(QStringLiteral("yyyy-MM-dd"));
}

QString KeyTime(const QDateTime& time) {
    return time.toString(QStringLiteral("HH:mm:ss"));
}

} // namespace paneda
