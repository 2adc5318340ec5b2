#pragma once

#include "core/files/disk_work.h"
#include "notes/edit_lock.h"
#include "notes/note_load.h"
#include "notes/note_save.h"

#include "core/text/code_page_decoder.h"

#include <QString>
#include <QStringList>

class QTextDocument;

namespace paneda {

// What a window shows of a note beside its text.
struct NoteView {
    NoteState State = NoteState::None;
    int Width = 0;  // pixels
    int Height = 0; // pixels
    // Somebody else is editing the note, or a save would lose something that the editor cannot hold (Losses,
    // or a note that is too large).
    bool ReadOnly = false;
    EditLock Lock;
    QStringList Losses; // in short words, "tracked changes"; see RtfReading
    QString Caption;    // who saved the note or is editing it, and how long ago
    QString Tooltip;    // the same moment as a date
    QString Notice;     // to be shown to the user; empty for nothing
};

// One note and the document of its editor: everything that a note window needs of the disk.
//
// No text is lost in silence. Opening another note saves a changed one first. What the editor does not hold
// as it stands on the disk (no rich text, a damaged zip, anything in Losses) is kept beside the note by the
// next save, in a file of its own; see SaveNote. `document.isModified()` says whether there is something to
// save.
class NoteDocument {
public:
    // The document and the disk outlive this. Called on the thread of the document; `work` runs the parts
    // that use the disk, at once when it is empty. `codePages` converts East Asian texts; empty where Qt
    // knows them all.
    NoteDocument(QTextDocument& document, NoteDisk& disk, CodePageDecoder codePages, DiskWork work = {});

    // Opens a note; an empty NoteFolder closes the one that is open. Fails, and changes nothing, when the
    // note that was open has changed and cannot be saved.
    tl::expected<NoteView, FileError> Open(const NotePlace& place, const NoteSession& session);

    // Saves what the editor holds and releases the edit lock. On failure the document stays modified.
    tl::expected<SavedNote, FileError> Save(const NoteSession& session);

    // To be called at the first change since the note was opened or saved. Where somebody else is editing
    // the note, the text on disk is shown again.
    FirstEdit BeginEdit(const NoteSession& session);

    // Shows the text on disk again: that of content.rtf, or none where the note is compressed. Writes nothing
    // and leaves the edit lock as it is.
    NoteView UndoAllChanges(const NoteSession& session);

    // Clears the edit lock, whoever holds it.
    FileResult ReleaseLock();

    // Stores the size of this note's window in pixels; 0 for the default.
    FileResult StoreWidth(int width);
    FileResult StoreHeight(int height);

private:
    void RunWork(const std::function<void()>& work) const;
    void ShowText(const QByteArray& rtf, const NoteSession& session, NoteView& view);
    FileResult StoreSide(QStringView key, int pixels);

    QTextDocument& document_;
    NoteDisk& disk_;
    CodePageDecoder codePages_;
    DiskWork work_;
    NotePlace place_;
    NoteOnDisk onDisk_;
    bool lockedByOther_ = false;
};

} // namespace paneda
