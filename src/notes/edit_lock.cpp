#include "notes/edit_lock.h"

#include "notes/node_properties.h"
#include "notes/note_files.h"

#include "core/files/file_guard.h"
#include "core/files/ini_file.h"

namespace paneda {

namespace {

// Behind a date, a time and a blank each.
constexpr qsizetype kUserPosition = 20;

} // namespace

EditLock ReadEditLock(const NotePlace& place) {
    if (!place.MultiUser)
        return {};
    const QString value = ReadNodeIni(place.Folder()).Value(node_key::kProperties, node_key::kEditing);
    return {value, !value.isEmpty()};
}

QString LockHolder(const QString& editingValue) {
    return editingValue.mid(kUserPosition);
}

FirstEdit BeginEdit(const NotePlace& place, const NoteSession& session, NoteDisk& disk) {
    FirstEdit edit;
    // A save that is under way clears the mark at its end.
    GuardWait wait;
    const FileGuard guard(NoteGuardFile(place.Folder()), wait);
    edit.Lock = ReadEditLock(place);
    if (edit.Lock.LockedByOther) {
        edit.Notice = QStringLiteral("Someone is editing this note! Editing Not Allow");
        return edit;
    }
    edit.MayEdit = true;
    if (!place.MultiUser)
        return edit;
    const QString stamp = KeyDate(session.Now) + u' ' + KeyTime(session.Now) + u' ' + session.UserName;
    const auto written = disk.WriteKeys(place, place.Folder(), {{node_key::kEditing, stamp}}, wait);
    if (!written)
        edit.Notice = QStringLiteral("Other users cannot be told that you are editing this note.\r") +
                      written.error().Text();
    return edit;
}

FileResult ReleaseEditLock(const NotePlace& place, NoteDisk& disk, GuardWait& wait) {
    if (!place.MultiUser)
        return {};
    return disk.WriteKeys(place, place.Folder(), {{node_key::kEditing, QString()}}, wait);
}

} // namespace paneda
