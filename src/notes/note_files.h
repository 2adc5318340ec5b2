#pragma once

#include "archive/zip_records.h"

#include "core/files/file_io.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace paneda {

// A note's text is in its folder as `content.rtf`, or as the only entry "content.rtf" of `content.zip`. Where
// both files exist the zip is the note, whichever is newer.
enum class NoteForm { None, Rtf, Zip };

// A note's file as it was when it was read or written; compared later to see if somebody else has saved.
struct NoteOnDisk {
    NoteForm Form = NoteForm::None;
    qint64 Size = 0;     // of the file, compressed or not
    QDateTime Modified;  // shown to the user; not compared, since clocks of sticks and servers are too coarse
    quint64 Hash = 0;    // of the file's bytes; 0 when they cannot be read
    bool Unseen = false; // the editor does not hold all of it, so saving over it would lose something
    bool TooLarge =
        false; // the editor holds nothing of it, since it is larger than kMaxNoteText; never saved over
};

// A note's text is read and written up to this many bytes.
inline constexpr qint64 kMaxNoteText = kMaxZipEntry;

// Where the files lie, found in any case of letters.
DiskPath NoteRtfFile(const DiskPath& noteFolder);
DiskPath NoteZipFile(const DiskPath& noteFolder);

// What a FileGuard is created with by those that change the note's text or take its edit lock.
DiskPath NoteGuardFile(const DiskPath& noteFolder);

// The form of the note at this moment, right also when another process turns one form into the other.
NoteForm FindNoteForm(const DiskPath& noteFolder);

// The file of a form; empty for None.
DiskPath NoteContentFile(const DiskPath& noteFolder, NoteForm form);

// The note's file as it is now.
NoteOnDisk LookAtNote(const DiskPath& noteFolder);

// The record of a file with these bytes, its time taken from the disk.
NoteOnDisk DescribeNote(const DiskPath& noteFolder, NoteForm form, const QByteArray& fileBytes);

// Whether the two are the same file contents.
bool IsSameNote(const NoteOnDisk& a, const NoteOnDisk& b);

// The text within the bytes of a content.zip: its entry "content.rtf", in any case of letters and in any
// folder, the last one if there are several. Empty when there is none or it cannot be read, for whatever
// reason.
struct ZippedNote {
    QByteArray Rtf;
    bool TooLarge = false; // why it is empty: there are more than kMaxNoteText bytes
};
ZippedNote ReadZippedNote(const QByteArray& zip);

// A path in the folder that is not taken, "content (<words>).<extension>", for a text that is kept beside the
// note. What no file name may hold is replaced.
DiskPath KeptNotePath(const DiskPath& noteFolder, const QString& words, NoteForm form);

} // namespace paneda
