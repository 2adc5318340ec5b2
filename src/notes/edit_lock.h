#pragma once

#include "notes/note_disk.h"
#include "notes/note_place.h"

#include <QDateTime>
#include <QString>

namespace paneda {

// The key `Editing` in a note's Properties.ini shows the users of a shared tree that one of them is editing
// the note: "yyyy-mm-dd hh:mm:ss user". This is the lock. What happens to it:
//
//   load of a note          read
//   first change            read again; written when it is empty
//   save                    emptied by the user who holds it (SaveNote)
//   undo of all changes     not changed
//   release by hand         emptied
//
// Nothing else empties it: it has no time-out, and after a crash the note is locked for its holder too. A
// tree of a single user neither reads nor writes it. Reading and writing are two steps; a FileGuard keeps
// other processes out in between, where a file can be made for it. If two users get the lock all the same,
// SaveNote keeps both texts.
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
    // To be shown to the user; empty for nothing. When the lock could not be written, the user may edit all
    // the same, and the text says that the other users get no warning.
    QString Notice;
};

// Called at the first change of a note's text. When the note is locked already nothing is written, and the
// caller shows the text on disk again.
FirstEdit BeginEdit(const NotePlace& place, const NoteSession& session, NoteDisk& disk);

// Empties the lock, whoever holds it. Does nothing for a tree of a single user.
FileResult ReleaseEditLock(const NotePlace& place, NoteDisk& disk, GuardWait& wait);

} // namespace paneda
