#include "notes/note_load.h"

#include "notes/node_properties.h"
#include "notes/note_caption.h"
#include "notes/note_save.h"

#include "core/files/ini_file.h"
#include "core/text/ranges.h"
#include "core/text/text_rules.h"

#include <utility>

namespace paneda {

namespace {

// The other form is there after one change of form by another process.
constexpr int kMaxLooks = 4;

QString TooLargeText(const DiskPath& file) {
    constexpr qint64 kMegabyte = 1024 * 1024;
    return Failure(
               file.Text(),
               QStringLiteral("The text of this note has more than %1 MB. That is too much to show it or to "
                              "change it here. Its file stays as it is.")
                   .arg(kMaxNoteText / kMegabyte))
        .value()
        .Text();
}

// False when the file has gone since it was found, so that another look is due.
bool ReadText(const DiskPath& folder, NoteForm form, LoadedNote& note) {
    const DiskPath file = NoteContentFile(folder, form);
    const auto bytes = ReadFileBytes(file, kMaxNoteText);
    if (bytes) {
        note.OnDisk = DescribeNote(folder, form, *bytes);
        const ZippedNote text = form == NoteForm::Zip ? ReadZippedNote(*bytes) : ZippedNote{*bytes};
        note.Rtf = text.Rtf;
        note.OnDisk.Unseen = form == NoteForm::Zip && note.Rtf.isEmpty();
        note.OnDisk.TooLarge = text.TooLarge;
        note.Problem = text.TooLarge ? TooLargeText(file) : QString();
        return !note.OnDisk.Unseen || EntryExists(file);
    }
    if (!EntryExists(file))
        return false;
    note.OnDisk = LookAtNote(folder);
    note.OnDisk.Unseen = true;
    note.OnDisk.TooLarge = note.OnDisk.Size > kMaxNoteText;
    note.Problem = note.OnDisk.TooLarge ? TooLargeText(file) : bytes.error().Text();
    return true;
}

void CreateText(const NotePlace& place, const NoteSession& session, const QByteArray& emptyRtf,
                NoteDisk& disk, LoadedNote& note) {
    note.Rtf = emptyRtf;
    const auto saved = SaveNote(place, session, {emptyRtf, {}, note.Lock.LockedByOther}, disk);
    if (!saved) {
        note.Problem = saved.error().Text();
        return;
    }
    // Ignored: keys that could not be written are written by the next save.
    note.OnDisk = saved->OnDisk;
    note.Problem = saved->Notice;
}

void LoadText(const NotePlace& place, const NoteSession& session, const QByteArray& emptyRtf, NoteDisk& disk,
              LoadedNote& note) {
    note.State = NoteState::Shown;
    for (int look = 0; look < kMaxLooks; ++look) {
        const NoteForm form = FindNoteForm(place.Folder());
        if (form != NoteForm::None && ReadText(place.Folder(), form, note))
            return;
    }
    if (LookAt(place.Folder()).Kind == EntryKind::Folder)
        CreateText(place, session, emptyRtf, disk, note);
    else
        note.State = NoteState::Missing;
}

int SideOr(const QString& value, int fallback) {
    const int side = LeadingInt(value);
    return side > 0 ? range::kNoteWindow.Nearest(side) : fallback;
}

void ReadKeys(const NotePlace& place, const NoteSession& session, LoadedNote& note) {
    const IniText ini = ReadNodeIni(place.Folder());
    const auto value = [&ini](QStringView key) { return ini.Value(node_key::kProperties, key); };
    note.Width = SideOr(value(node_key::kWidth), session.Settings.Width);
    note.Height = SideOr(value(node_key::kHeight), DefaultNoteHeight(session));
    const LastEdit last{value(node_key::kLastEditUser), value(node_key::kLastEditDate),
                        value(node_key::kLastEditTime)};
    note.Caption = NoteCaption(note.Lock, last, session.Now);
    note.Tooltip = NoteTooltip(last, session.Now);
}

} // namespace

LoadedNote LoadNote(const NotePlace& place, const NoteSession& session, const QByteArray& emptyRtf,
                    NoteDisk& disk) {
    LoadedNote note;
    if (place.NoteFolder.isEmpty())
        return note;
    note.Lock = ReadEditLock(place);
    LoadText(place, session, emptyRtf, disk, note);
    if (note.State == NoteState::Missing) {
        note.Lock = {};
        note.Problem = QStringLiteral("Note have been moved/deleted/detached\r"
                                      "Right click empty area of this tree to refresh");
        return note;
    }
    ReadKeys(place, session, note);
    return note;
}

QByteArray RestoreNoteText(const NotePlace& place, NoteOnDisk& onDisk) {
    const DiskPath folder = place.Folder();
    const auto bytes = ReadFileBytes(NoteRtfFile(folder), kMaxNoteText);
    const NoteOnDisk before = std::exchange(onDisk, LookAtNote(folder));
    onDisk.TooLarge = before.TooLarge && IsSameNote(before, onDisk);
    const bool isShown = bytes && IsSameNote(onDisk, DescribeNote(folder, NoteForm::Rtf, *bytes));
    onDisk.Unseen = onDisk.Form != NoteForm::None && !isShown;
    return bytes.value_or(QByteArray());
}

} // namespace paneda
