#pragma once

#include "notes/note_disk.h"
#include "notes/note_place.h"

#include <QDateTime>
#include <QString>

namespace paneda {

// The mark `Editing` in a note's Properties.ini, which tells the users of a shared tree that one of them is
// editing: "yyyy-mm-dd hh:mm:ss user". Its life:
//
//   load of a note          read
//   first change            read again; stamped when it is empty
//   save                    cleared by the holder (SaveNote)
//   undo of all changes     untouched
//   release by hand         cleared
//
// Nothing else clears it: it has no time-out, and a holder who comes back after a crash finds the note
// locked. A tree of a single user neither reads nor writes it. Reading and stamping are two steps; a
// FileGuard keeps other processes out in between where the folder lets it. Where two users get the mark all
// the same, what they save is kept apart by SaveNote.
struct EditLock {
    QString EditingValue;       // as last read
    bool LockedByOther = false; // it was not empty
};

inline constexpr char16_t kReleaseLockTitle[] = u"Release Multiuser Lock";
inline constexpr char16_t kReleaseLockQuestion[] = u"Are you sure nobody editing this note now?";
inline constexpr char16_t kReleasedCaption[] = u"Unlocked";

EditLock ReadEditLock(const NotePlace& place);

// The user in a value of `Editing`.
QString LockHolder(const QString& editingValue);

struct FirstEdit {
    EditLock Lock;
    bool MayEdit = false;
    // What the user has to be told; empty for nothing. Editing goes on when the mark could not be written,
    // and the user knows that nobody else is warned.
    QString Notice;
};

// Called at the first change of a note's text. When somebody else holds the mark nothing is written, and the
// text on disk has to be put back.
FirstEdit BeginEdit(const NotePlace& place, const NoteSession& session, NoteDisk& disk);

// Clears the mark, whoever holds it; nothing for a tree of a single user.
FileResult ReleaseEditLock(const NotePlace& place, NoteDisk& disk);

} // namespace paneda
