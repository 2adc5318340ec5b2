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
    // Files in which other texts were kept beside the note, and a text about them for the user. Empty for
    // none.
    QStringList KeptFiles;
    QString Notice;
    // What failed after the text was saved: writing keys, removing the old form, releasing the lock.
    std::vector<FileError> Failures;
};

// Saves a note: its text, compressed or not by the settings' limit, the keys of its last edit here and in all
// folders up to the tree's root, and the release of the edit lock where this user holds it.
//
// On failure the note on disk is as it was, and the draft is still to be saved. Fails as well, and writes
// nothing, when the note's folder does not exist any more, and for a draft of a note that was too large to be
// shown.
//
// Each step is done whole or not at all (NoteDisk). As the zip is the note wherever there is one, a reader
// finds exactly one text after each step, the old or the new:
//
//   same form as before   Replace the one file.
//   rtf to zip            1 Write the zip: it is the note from now on. 2 Flush the folder. 3 Remove the rtf.
//                         Killed before 3, the old rtf stays beside the zip until the next save.
//   zip to rtf            1 Replace the zip by one with the new text. 2 Write the rtf. 3 Flush the folder.
//                         4 Remove the zip.
//                         Killed before 4, the zip with the new text is the note, and the next save tries
//                         again. So an older text is never read after a newer one.
//   The flush puts the new form's name on the disk, so that a power failure never leaves neither form.
//   keys                  After the text. Killed before them, the note shows the age of an older save, and in
//                         a shared tree it stays locked, as after any crash of the user who was editing.
//
// Before the first step other texts are kept, as copies beside the note: what another process has saved since
// the draft was loaded, as "content (other <time> <user>)"; what the editor did not hold (Unseen), and an rtf
// beside a zip that is damaged or older than that rtf, as "content (kept <time>)". If such a copy fails, the
// save fails. Meanwhile a FileGuard keeps out the saves of other processes; where it cannot, a save of theirs
// between that look and the write is lost.
tl::expected<SavedNote, FileError> SaveNote(const NotePlace& place, const NoteSession& session,
                                            const NoteDraft& draft, NoteDisk& disk);

} // namespace paneda
