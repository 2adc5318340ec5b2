#include "notes/note_files.h"

#include "archive/zip_extraction.h"

#include "core/store/names.h"
#include "core/text/checksum.h"

namespace paneda {

DiskPath NoteRtfFile(const DiskPath& noteFolder) {
    return FindEntry(noteFolder, QStringLiteral("content.rtf"));
}

DiskPath NoteZipFile(const DiskPath& noteFolder) {
    return FindEntry(noteFolder, QStringLiteral("content.zip"));
}

DiskPath NoteGuardFile(const DiskPath& noteFolder) {
    return noteFolder / QStringLiteral("content");
}

NoteForm FindNoteForm(const DiskPath& noteFolder) {
    const auto hasZip = [&noteFolder] { return EntryExists(NoteZipFile(noteFolder)); };
    if (hasZip())
        return NoteForm::Zip;
    if (EntryExists(NoteRtfFile(noteFolder)))
        return NoteForm::Rtf;
    // A zip that has come since the first look may be why the other file has gone.
    return hasZip() ? NoteForm::Zip : NoteForm::None;
}

DiskPath NoteContentFile(const DiskPath& noteFolder, NoteForm form) {
    switch (form) {
    case NoteForm::Rtf:
        return NoteRtfFile(noteFolder);
    case NoteForm::Zip:
        return NoteZipFile(noteFolder);
    case NoteForm::None:
        break;
    }
    return {};
}

NoteOnDisk LookAtNote(const DiskPath& noteFolder) {
    const NoteForm form = FindNoteForm(noteFolder);
    if (form == NoteForm::None)
        return {};
    const DiskPath file = NoteContentFile(noteFolder, form);
    if (const auto bytes = ReadFileBytes(file, kMaxNoteText))
        return DescribeNote(noteFolder, form, *bytes);
    const EntryState state = LookAt(file);
    return {form, state.Size, state.Modified, 0, false};
}

NoteOnDisk DescribeNote(const DiskPath& noteFolder, NoteForm form, const QByteArray& fileBytes) {
    const EntryState state = LookAt(NoteContentFile(noteFolder, form));
    return {form, fileBytes.size(), state.Modified, Fnv1a64OfWords(fileBytes), false};
}

bool IsSameNote(const NoteOnDisk& a, const NoteOnDisk& b) {
    return a.Form == b.Form && a.Size == b.Size && a.Hash == b.Hash;
}

ZippedNote ReadZippedNote(const QByteArray& zip) {
    ZippedNote note;
    ZipEvents events;
    // Of other errors nothing is said: an archive that cannot be read is an empty note.
    events.Error = [&note](const QString&, int number) {
        if (number == int(ZipError::TooBig))
            note = {{}, true};
    };
    ZipExtractionClass extraction(
        events,
        [&note](const QString&, const QByteArray& bytes) {
            note = {bytes, false};
        },
        [](const QString& name) { return name.compare(u"content.rtf", Qt::CaseInsensitive) == 0; });
    if (extraction.OpenZip(zip, QStringLiteral("content.zip")))
        extraction.Extract({}, false, false);
    return note;
}

DiskPath KeptNotePath(const DiskPath& noteFolder, const QString& words, NoteForm form) {
    const QString extension = form == NoteForm::Zip ? QStringLiteral("zip") : QStringLiteral("rtf");
    // Leaves room for the rest within what file systems allow for a name.
    const QString base = SafeFileName(words).left(60);
    for (int number = 1;; ++number) {
        const QString tail = number == 1 ? QString() : QStringLiteral(" %1").arg(number);
        const DiskPath path =
            FindEntry(noteFolder, QStringLiteral("content (%1%2).%3").arg(base, tail, extension));
        if (!EntryExists(path))
            return path;
    }
}

} // namespace paneda
