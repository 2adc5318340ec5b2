#include "notes/note_files.h"

#include "archive/zip_extraction.h"

#include "core/store/names.h"
#include "core/text/checksum.h"

#include <QDir>
#include <QFileInfo>

namespace paneda {

QString NoteRtfFile(const QString& noteFolder) {
    return FindEntry(noteFolder, QStringLiteral("content.rtf"));
}

QString NoteZipFile(const QString& noteFolder) {
    return FindEntry(noteFolder, QStringLiteral("content.zip"));
}

QString NoteGuardFile(const QString& noteFolder) {
    return noteFolder + QStringLiteral("/content");
}

NoteForm FindNoteForm(const QString& noteFolder) {
    const auto hasZip = [&noteFolder] { return QFileInfo::exists(NoteZipFile(noteFolder)); };
    if (hasZip())
        return NoteForm::Zip;
    if (QFileInfo::exists(NoteRtfFile(noteFolder)))
        return NoteForm::Rtf;
    // A zip that has come since the first look may be why the other file has gone.
    return hasZip() ? NoteForm::Zip : NoteForm::None;
}

QString NoteContentFile(const QString& noteFolder, NoteForm form) {
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

NoteOnDisk LookAtNote(const QString& noteFolder) {
    const NoteForm form = FindNoteForm(noteFolder);
    if (form == NoteForm::None)
        return {};
    const QString file = NoteContentFile(noteFolder, form);
    if (const auto bytes = ReadFileBytes(file, kMaxNoteText))
        return DescribeNote(noteFolder, form, *bytes);
    const QFileInfo info(file);
    return {form, info.size(), info.lastModified(), 0, false};
}

NoteOnDisk DescribeNote(const QString& noteFolder, NoteForm form, const QByteArray& fileBytes) {
    const QFileInfo info(NoteContentFile(noteFolder, form));
    return {form, fileBytes.size(), info.lastModified(), Fnv1a64OfWords(fileBytes), false};
}

bool IsSameNote(const NoteOnDisk& a, const NoteOnDisk& b) {
    return a.Form == b.Form && a.Size == b.Size && a.Hash == b.Hash;
}

QByteArray ReadZippedNote(const QString& zipFile) {
    QByteArray text;
    // No listener for errors: an archive that cannot be read is an empty note.
    ZipExtractionClass zip(
        {}, [&text](const QString&, const QByteArray& bytes) { text = bytes; },
        [](const QString& name) { return name.compare(u"content.rtf", Qt::CaseInsensitive) == 0; });
    if (zip.OpenZip(zipFile))
        zip.Extract({}, false, false);
    return text;
}

QString KeptNotePath(const QString& noteFolder, const QString& words, NoteForm form) {
    const QString extension = form == NoteForm::Zip ? QStringLiteral("zip") : QStringLiteral("rtf");
    // Leaves room for the rest within what file systems allow for a name.
    const QString base = SafeFileName(words).left(60);
    for (int number = 1;; ++number) {
        const QString tail = number == 1 ? QString() : QStringLiteral(" %1").arg(number);
        const QString path =
            FindEntry(noteFolder, QStringLiteral("content (%1%2).%3").arg(base, tail, extension));
        if (!QFileInfo::exists(path))
            return path;
    }
}

} // namespace paneda
