#include "notes/note_place.h"

#include <QDir>

#include <algorithm>

namespace paneda {

int DefaultNoteHeight(const NoteSession& session) {
    return std::max(session.PanelHeight, session.Settings.Height);
}

QStringList FoldersUpToRoot(const NotePlace& place) {
    const QString root = QDir::cleanPath(place.TreeRoot);
    QString folder = QDir::cleanPath(place.NoteFolder);
    QStringList folders{folder};
    const QString below = root.endsWith(u'/') ? root : root + u'/';
    if (place.TreeRoot.isEmpty() || !folder.startsWith(below, Qt::CaseInsensitive))
        return folders;
    while (folder.size() > below.size()) {
        folder = folder.left(std::max(folder.lastIndexOf(u'/'), root.size()));
        folders.append(folder);
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
