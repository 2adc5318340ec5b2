#pragma once

#include "notes/note_disk.h"
#include "notes/note_files.h"
#include "notes/note_place.h"

#include "core/files/file_io.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace paneda {

// What the editor holds.
struct NoteDraft {
    QByteArray Rtf;
    NoteOnDisk LoadedAs; // the file that its text came from, or that it was last saved as
    bool LockedByOther = false;
};

struct SavedNote {
    NoteOnDisk OnDisk;
    // Texts that were kept beside the note, and what the user has to be told about them. Empty for none.
    QStringList KeptFiles;
    QString Notice;
    // What could not be done once the text was safe: keys, the old form's removal, the lock.
    std::vector<FileError> Failures;
};

// Saves a note: its text, compressed or not by the settings' limit, the keys of its last edit here and in all
// folders up to the tree's root, and the release of the edit lock where this user holds it.
//
// On failure the note on disk is as it was, and the draft is still to be saved. Fails as well, and writes
// nothing, when the note's folder is gone.
//
// Order of the steps, each of which is whole (NoteDisk). Since a zip is the note wherever one stands, a
// reader finds exactly one text after every step, the old or the new:
//
//   new, rtf or zip as before    replace the one file
//   rtf -> zip                   1 put the zip in place: it is the note from now on; 2 remove the rtf.
//                                Ended after 1: a stale rtf stands beside, unread, until the next save.
//   zip -> rtf                   1 replace the zip by one with the new text; 2 put the rtf in place;
//                                3 remove the zip. Ended after 1 or 2: the zip with the new text is the note,
//                                and the next save tries again. Both files never hold different texts of
//                                which the older is read.
//   keys                         behind the text: ended before them the note shows the age of an older save
//                                and, in a shared tree, stays locked, as after any crash of a holder.
//
// Before the first step comes a look at what lies there. What another process has saved since the draft was
// loaded is copied beside the note as "content (other <time> <user>)". So is, as "content (kept <time>)", a
// file that gave the editor no text, and an rtf beside a zip that is newer than it or beside a damaged one.
// If that copy fails, the save fails. From the look to the end a FileGuard keeps the saves of other
// processes out; where it cannot, a save of theirs between the look and the write is lost.
tl::expected<SavedNote, FileError> SaveNote(const NotePlace& place, const NoteSession& session,
                                            const NoteDraft& draft, NoteDisk& disk);

} // namespace paneda
