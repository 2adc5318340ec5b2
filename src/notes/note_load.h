#pragma once

#include "notes/edit_lock.h"
#include "notes/note_files.h"
#include "notes/note_place.h"

#include <QByteArray>
#include <QString>

namespace paneda {

enum class NoteState {
    None,    // no note was asked for
    Shown,   // the editor gets Rtf
    Missing, // the folder is gone; Problem says so, and all else is empty
};

// What the note window shows.
struct LoadedNote {
    NoteState State = NoteState::None;
    // The text. Empty for an empty editor: a file of no bytes, or one that gave no text (OnDisk.Unseen).
    QByteArray Rtf;
    NoteOnDisk OnDisk;
    int Width = 0;  // pixels
    int Height = 0; // pixels
    EditLock Lock;
    QString Caption; // who saved the note or is editing it, and how long ago
    QString Tooltip; // the same moment as a date
    // To be shown to the user; empty for nothing.
    QString Problem;
};

// Loads a note. One that has no text yet is saved with `emptyRtf`, which creates its file and its keys. For a
// damaged content.zip the text is empty and no problem is reported, but OnDisk.Unseen makes the next save
// keep the damaged file. A file that cannot be read for another reason is kept in the same way and reported.
// One that is too large is reported and cannot be saved over (OnDisk.TooLarge).
LoadedNote LoadNote(const NotePlace& place, const NoteSession& session, const QByteArray& emptyRtf,
                    NoteDisk& disk);

// The text that is put back when changes are undone or may not be made: that of content.rtf, or none, also
// where the note is compressed. `onDisk` becomes the file that the editor then holds.
QByteArray RestoreNoteText(const NotePlace& place, NoteOnDisk& onDisk);

} // namespace paneda
