#include "notes/note_save.h"

#include "notes/edit_lock.h"
#include "notes/node_properties.h"

#include "archive/zip_class.h"

#include "core/files/file_guard.h"
#include "core/files/ini_file.h"

#include <QDir>

namespace paneda {

namespace {

constexpr qint64 kBytesPerKilobyte = 1024;

void Collect(std::vector<FileError>& failures, const FileResult& result) {
    if (!result)
        failures.push_back(result.error());
}

QString FileTime(const QDateTime& time) {
    return time.toString(QStringLiteral("yyyy-MM-dd HH.mm.ss"));
}

QString LastUser(const DiskPath& folder) {
    return ReadNodeIni(folder).Value(node_key::kProperties, node_key::kLastEditUser);
}

// One save. Holds what its steps share.
class Saving {
public:
    Saving(const NotePlace& place, const NoteSession& session, const NoteDraft& draft, NoteDisk& disk)
        : place_(place), session_(session), draft_(draft), disk_(disk), folder_(place.Folder()) {}

    tl::expected<SavedNote, FileError> Run();

private:
    FileResult KeepOthers(const NoteOnDisk& found);
    FileResult KeepFound(const NoteOnDisk& found);
    QString KeptWords() const;
    FileResult Keep(NoteForm form, const QString& words, const QString& notice);
    bool HidesText() const;
    bool IsCompressed() const;
    tl::expected<QByteArray, FileError> Zipped() const;
    FileResult WriteZipped();
    FileResult WritePlain(NoteForm before);
    FileResult ReplaceContent(NoteForm form, const QByteArray& bytes);
    void WriteKeys();

    const NotePlace& place_;
    const NoteSession& session_;
    const NoteDraft& draft_;
    NoteDisk& disk_;
    const DiskPath folder_;
    GuardWait wait_;
    SavedNote saved_;
};

tl::expected<SavedNote, FileError> Saving::Run() {
    if (LookAt(folder_).Kind != EntryKind::Folder)
        return Failure(folder_.Text(), QStringLiteral("The folder of this note does not exist any more."));
    if (draft_.LoadedAs.TooLarge)
        return Failure(folder_.Text(),
                       QStringLiteral("This note is too large to be changed here. Its file stays "
                                      "as it is."));
    if (draft_.Rtf.size() > kMaxNoteText)
        return Failure(folder_.Text(), QStringLiteral("The note is larger than %1 bytes.").arg(kMaxNoteText));
    const FileGuard guard(NoteGuardFile(folder_), wait_);
    const NoteOnDisk found = LookAtNote(folder_);
    if (const auto kept = KeepOthers(found); !kept)
        return tl::make_unexpected(kept.error());
    if (const auto written = IsCompressed() ? WriteZipped() : WritePlain(found.Form); !written)
        return tl::make_unexpected(written.error());
    WriteKeys();
    return saved_;
}

FileResult Saving::KeepOthers(const NoteOnDisk& found) {
    if (const auto kept = KeepFound(found); !kept)
        return kept;
    if (found.Form == NoteForm::Zip && HidesText())
        return Keep(NoteForm::Rtf, KeptWords(),
                    QStringLiteral("A second text of this note was found. It is kept beside yours:"));
    return {};
}

FileResult Saving::KeepFound(const NoteOnDisk& found) {
    const bool isOurText =
        found.Form == NoteForm::Rtf && IsSameNote(found, DescribeNote(folder_, NoteForm::Rtf, draft_.Rtf));
    if (found.Form == NoteForm::None || isOurText)
        return {};
    if (!IsSameNote(found, draft_.LoadedAs)) {
        const QString user = LastUser(folder_);
        const QString words = QStringLiteral("other %1 %2").arg(FileTime(found.Modified), user);
        return Keep(
            found.Form, words.trimmed(),
            QStringLiteral("%1 has saved this note since you opened it. That text is kept beside yours:")
                .arg(user.isEmpty() ? QStringLiteral("Somebody") : user));
    }
    if (draft_.LoadedAs.Unseen)
        return Keep(
            found.Form, KeptWords(),
            QStringLiteral("The text that this note had on disk was not shown. It is kept beside yours:"));
    return {};
}

QString Saving::KeptWords() const {
    return QStringLiteral("kept ") + FileTime(session_.Now);
}

FileResult Saving::Keep(NoteForm form, const QString& words, const QString& notice) {
    const DiskPath path = KeptNotePath(folder_, words, form);
    if (const auto copied = disk_.Copy(NoteContentFile(folder_, form), path); !copied)
        return copied;
    saved_.KeptFiles.append(path.Text());
    if (!saved_.Notice.isEmpty())
        saved_.Notice += u'\r';
    saved_.Notice += notice + u'\r' + QDir::toNativeSeparators(path.Text());
    return {};
}

// Whether an rtf beside the zip is more than what an ended save left there, which is older than the zip or
// has its text.
bool Saving::HidesText() const {
    const DiskPath rtf = NoteRtfFile(folder_);
    const DiskPath zip = NoteZipFile(folder_);
    const EntryState rtfState = LookAt(rtf);
    if (rtfState.Kind != EntryKind::File)
        return false;
    const QByteArray zipped = ReadZippedNote(ReadFileBytes(zip, kMaxNoteText).value_or(QByteArray())).Rtf;
    if (!zipped.isEmpty() && rtfState.Modified <= LookAt(zip).Modified)
        return false;
    const auto text = ReadFileBytes(rtf, kMaxNoteText);
    return !text || *text != zipped;
}

bool Saving::IsCompressed() const {
    const qint64 limit = session_.Settings.CompressSize;
    return limit > 0 && draft_.Rtf.size() > limit * kBytesPerKilobyte;
}

tl::expected<QByteArray, FileError> Saving::Zipped() const {
    ZipClass zip;
    if (const auto added = zip.AddBytes(QStringLiteral("content.rtf"), draft_.Rtf, session_.Now); !added)
        return tl::make_unexpected(added.error());
    return zip.Bytes();
}

FileResult Saving::ReplaceContent(NoteForm form, const QByteArray& bytes) {
    // A note that changes its form is for the same users as before.
    const DiskPath other = form == NoteForm::Zip ? NoteRtfFile(folder_) : NoteZipFile(folder_);
    if (const auto written = disk_.Replace(NoteContentFile(folder_, form), bytes, other); !written)
        return written;
    saved_.OnDisk = DescribeNote(folder_, form, bytes);
    return {};
}

FileResult Saving::WriteZipped() {
    const auto zipped = Zipped();
    if (!zipped)
        return tl::make_unexpected(zipped.error());
    if (const auto written = ReplaceContent(NoteForm::Zip, *zipped); !written)
        return written;
    auto removed = disk_.Flush(folder_);
    if (removed)
        removed = disk_.Remove(NoteRtfFile(folder_));
    Collect(saved_.Failures, removed);
    return {};
}

FileResult Saving::WritePlain(NoteForm before) {
    if (before != NoteForm::Zip)
        return ReplaceContent(NoteForm::Rtf, draft_.Rtf);
    const auto zipped = Zipped();
    if (!zipped)
        return tl::make_unexpected(zipped.error());
    if (const auto written = ReplaceContent(NoteForm::Zip, *zipped); !written)
        return written;
    // The text is safe from here on, and stays in the zip when it cannot be brought out of it.
    const NoteOnDisk inZip = saved_.OnDisk;
    auto changed = ReplaceContent(NoteForm::Rtf, draft_.Rtf);
    if (changed)
        changed = disk_.Flush(folder_);
    if (changed)
        changed = disk_.Remove(NoteZipFile(folder_));
    if (!changed)
        saved_.OnDisk = inZip;
    Collect(saved_.Failures, changed);
    return {};
}

void Saving::WriteKeys() {
    const QString date = KeyDate(session_.Now);
    const QString time = KeyTime(session_.Now);
    Collect(saved_.Failures, disk_.WriteKeys(place_, folder_,
                                             {{node_key::kLastEditUser, session_.UserName},
                                              {node_key::kLastEditDate, date},
                                              {node_key::kLastEditTime, time}},
                                             wait_));
    for (const DiskPath& folder : FoldersUpToRoot(place_))
        Collect(
            saved_.Failures,
            disk_.WriteKeys(place_, folder, {{node_key::kLastAllLevelEditTime, date + u' ' + time}}, wait_));
    if (!draft_.LockedByOther)
        Collect(saved_.Failures, ReleaseEditLock(place_, disk_, wait_));
}

} // namespace

tl::expected<SavedNote, FileError> SaveNote(const NotePlace& place, const NoteSession& session,
                                            const NoteDraft& draft, NoteDisk& disk) {
    return Saving(place, session, draft, disk).Run();
}

} // namespace paneda
