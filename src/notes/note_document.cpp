#include "notes/note_document.h"

#include "notes/node_properties.h"
#include "notes/rtf/read/reader.h"
#include "notes/rtf/write/writer.h"

#include <QFont>
#include <QTextDocument>

#include <utility>

namespace paneda {

namespace {

void SetDefaultFont(QTextDocument& document, const NoteSettings& settings) {
    QFont font(settings.FontName);
    font.setPointSizeF(settings.FontSize);
    document.setDefaultFont(font);
}

QByteArray EmptyNote(const NoteSettings& settings) {
    QTextDocument empty;
    SetDefaultFont(empty, settings);
    return WriteRtf(empty);
}

void AddNotice(QString& notice, const QString& line) {
    notice += notice.isEmpty() ? line : u'\r' + line;
}

QString PlainNotice(const RtfReading& reading) {
    const QString cut = reading.IsCut ? QStringLiteral(" Only its beginning is shown.") : QString();
    return QStringLiteral("This note has %1. That is too much to show it with its formatting: it is shown as "
                          "plain text and cannot be changed here. Its file stays as it is.%2")
        .arg(reading.PlainReason, cut);
}

} // namespace

NoteDocument::NoteDocument(QTextDocument& document, NoteDisk& disk, CodePageDecoder codePages, DiskWork work)
    : document_(document), disk_(disk), codePages_(std::move(codePages)), work_(std::move(work)) {}

void NoteDocument::RunWork(const std::function<void()>& work) const {
    if (work_)
        work_(work);
    else
        work();
}

void NoteDocument::ShowText(const QByteArray& rtf, const NoteSession& session, NoteView& view) {
    document_.clear();
    SetDefaultFont(document_, session.Settings);
    const RtfReading reading = rtf.isEmpty() ? RtfReading() : ReadRtf(rtf, document_, codePages_);
    document_.setModified(false);
    view.Losses = reading.Losses;
    if (!reading.IsRtf())
        AddNotice(view.Notice,
                  reading.Error + QStringLiteral(" It is shown empty. If you save it, the file that is there "
                                                 "now will be kept beside it."));
    if (!reading.PlainReason.isEmpty())
        AddNotice(view.Notice, PlainNotice(reading));
    onDisk_.Unseen = onDisk_.Unseen || !reading.IsRtf() || !reading.Losses.isEmpty();
    view.ReadOnly = lockedByOther_ || onDisk_.TooLarge || !reading.Losses.isEmpty();
}

tl::expected<NoteView, FileError> NoteDocument::Open(const NotePlace& place, const NoteSession& session) {
    if (!place_.NoteFolder.isEmpty() && document_.isModified()) {
        if (const auto saved = Save(session); !saved)
            return tl::make_unexpected(saved.error());
    }
    const QByteArray empty = EmptyNote(session.Settings);
    LoadedNote loaded;
    RunWork([&] { loaded = LoadNote(place, session, empty, disk_); });
    place_ = loaded.State == NoteState::Shown ? place : NotePlace();
    onDisk_ = loaded.OnDisk;
    lockedByOther_ = loaded.Lock.LockedByOther;
    NoteView view{loaded.State, loaded.Width,   loaded.Height,  false,         loaded.Lock,
                  {},           loaded.Caption, loaded.Tooltip, loaded.Problem};
    ShowText(loaded.Rtf, session, view);
    return view;
}

tl::expected<SavedNote, FileError> NoteDocument::Save(const NoteSession& session) {
    if (place_.NoteFolder.isEmpty())
        return SavedNote();
    const NoteDraft draft{WriteRtf(document_), onDisk_, lockedByOther_};
    tl::expected<SavedNote, FileError> saved;
    RunWork([&] { saved = SaveNote(place_, session, draft, disk_); });
    if (saved) {
        onDisk_ = saved->OnDisk;
        document_.setModified(false);
    }
    return saved;
}

FirstEdit NoteDocument::BeginEdit(const NoteSession& session) {
    FirstEdit edit;
    RunWork([&] { edit = paneda::BeginEdit(place_, session, disk_); });
    lockedByOther_ = edit.Lock.LockedByOther;
    if (!edit.MayEdit)
        UndoAllChanges(session);
    return edit;
}

NoteView NoteDocument::UndoAllChanges(const NoteSession& session) {
    QByteArray rtf;
    RunWork([&] { rtf = RestoreNoteText(place_, onDisk_); });
    NoteView view;
    view.State = NoteState::Shown;
    ShowText(rtf, session, view);
    return view;
}

FileResult NoteDocument::ReleaseLock() {
    FileResult released;
    RunWork([&] {
        GuardWait wait;
        released = ReleaseEditLock(place_, disk_, wait);
    });
    lockedByOther_ = lockedByOther_ && !released;
    return released;
}

FileResult NoteDocument::StoreSide(QStringView key, int pixels) {
    if (place_.NoteFolder.isEmpty())
        return {};
    FileResult stored;
    RunWork([&] {
        GuardWait wait;
        stored = disk_.WriteKeys(place_, place_.Folder(), {{key, QString::number(pixels)}}, wait);
    });
    return stored;
}

FileResult NoteDocument::StoreWidth(int width) {
    return StoreSide(node_key::kWidth, width);
}

FileResult NoteDocument::StoreHeight(int height) {
    return StoreSide(node_key::kHeight, height);
}

} // namespace paneda
