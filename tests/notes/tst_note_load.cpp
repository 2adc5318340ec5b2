#include "notes/note_maker.h"

#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kRtf = u"content.rtf"_s;
const QString kZip = u"content.zip"_s;
const QByteArray kLong(2000, 'L');

QByteArray ZipOf(const QByteArray& text) {
    NoteMaker maker;
    maker.Session.Settings.CompressSize = 1;
    if (!maker.Save(text, {}))
        qFatal("a test cannot make its zip");
    return maker.Bytes(kZip);
}

} // namespace

class tst_note_load : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newNote();
    void missing();
    void sizes();
    void captions();
    void texts();
    void tooLargeZip();
    void damagedZip_data();
    void damagedZip();
    void restores();
};

void tst_note_load::newNote() {
    NoteMaker note;
    QCOMPARE(LoadNote({}, note.Session, kEmptyRtf, note.Disk).State, NoteState::None);
    const LoadedNote loaded = note.Load();
    QCOMPARE(loaded.State, NoteState::Shown);
    QCOMPARE(loaded.Rtf, kEmptyRtf);
    QCOMPARE(note.Bytes(kRtf), kEmptyRtf);
    QCOMPARE(loaded.Caption, u"Last Edited :  by Ann 0 minute ago"_s);
    QCOMPARE(note.Key(u"Last All Level Edit Time"_s, kRoot), u"2026-11-21 06:30:43"_s);
    // What was made is what the first save goes by.
    const auto saved = note.Save("text", loaded);
    QVERIFY(saved && saved->Notice.isEmpty());
}

void tst_note_load::missing() {
    NoteMaker note(true);
    note.SetKey(u"Editing"_s, u"2026-11-21 06:00:00 Bob"_s);
    QVERIFY(QDir(note.Place.NoteFolder).removeRecursively());
    const LoadedNote loaded = note.Load();
    QCOMPARE(loaded.State, NoteState::Missing);
    QCOMPARE(loaded.Problem, u"Note have been moved/deleted/detached\r"
                             "Right click empty area of this tree to refresh"_s);
    QVERIFY(!QFileInfo::exists(note.Place.NoteFolder));
}

void tst_note_load::sizes() {
    NoteMaker note;
    note.Session.PanelHeight = 519;
    note.Session.Settings.Width = 640;
    note.Session.Settings.Height = 520;
    const auto size = [&note](const QString& width, const QString& height) {
        note.SetKey(u"Width"_s, width);
        note.SetKey(u"Height"_s, height);
        const LoadedNote loaded = note.Load();
        return QSize(loaded.Width, loaded.Height);
    };
    QCOMPARE(size(u"700"_s, u"300"_s), QSize(700, 300));
    QCOMPARE(size(u"0"_s, u"-5"_s), QSize(640, 520));
    note.Session.PanelHeight = 900;
    QCOMPARE(size(u"x"_s, {}), QSize(640, 900));
}

void tst_note_load::captions() {
    NoteMaker note(true);
    note.Put(kRtf, "text");
    QCOMPARE(note.Load().Caption, u"Last Edited :  by  "_s);
    note.SetKey(u"Last Edit Date"_s, u"2026-11-21"_s);
    note.SetKey(u"Last Edit Time"_s, u"06:20:59"_s);
    QCOMPARE(note.Load().Tooltip, u"6:20am"_s);
    note.SetKey(u"Editing"_s, u"2026-11-19 01:02:03 Carl C."_s);
    LoadedNote loaded = note.Load();
    QCOMPARE(loaded.Caption, u"Editing :  Carl C.   Started : 10 minutes ago"_s);
    QVERIFY(loaded.Lock.LockedByOther);
    // A tree of one user does not look at the mark.
    note.Place.MultiUser = false;
    QVERIFY(note.Load().Caption.startsWith(u"Last Edited"_s));
}

void tst_note_load::texts() {
    NoteMaker note;
    note.Put(u"CONTENT.rtf"_s, "text \xE9");
    QCOMPARE(note.Load().Rtf, QByteArray("text \xE9"));
    // The zip is the note wherever one stands.
    note.Put(u"Content.Zip"_s, ZipOf(kLong));
    LoadedNote loaded = note.Load();
    QCOMPARE(loaded.Rtf, kLong);
    QCOMPARE(loaded.OnDisk.Form, NoteForm::Zip);
    QVERIFY(note.Save("short", loaded));
    QCOMPARE(note.Contents(), QStringList(u"CONTENT.rtf"_s));

    NoteMaker blocked;
    blocked.Store.AddFolder(blocked.In(kRtf));
    loaded = blocked.Load();
    QVERIFY(loaded.Rtf.isEmpty() && loaded.OnDisk.Unseen && loaded.Problem.contains(kRtf));
}

// So large by what its directory says, which that many bytes could hold.
void tst_note_load::tooLargeZip() {
    QByteArray text(200'000, ' ');
    QRandomGenerator(1).generate(text.begin(), text.end());
    QByteArray zip = ZipOf(text);
    qToLittleEndian(quint32(kMaxNoteText + 1), zip.data() + zip.lastIndexOf("PK\x01\x02") + 24);
    NoteMaker note;
    note.Put(kZip, zip);
    LoadedNote loaded = note.Load();
    QVERIFY(loaded.Rtf.isEmpty() && loaded.Problem.contains(u"more than 128 MB"_s));
    QVERIFY(!note.Save("short", loaded));
    (void)RestoreNoteText(note.Place, loaded.OnDisk);
    QVERIFY(!note.Save("short", loaded));
    QCOMPARE(note.Contents(), QStringList(kZip));
    QCOMPARE(note.Bytes(kZip), zip);
}

void tst_note_load::damagedZip_data() {
    QTest::addColumn<QByteArray>("zip");
    const QByteArray good = ZipOf(kLong);
    QTest::newRow("nothing") << QByteArray();
    QByteArray bytes = good;
    bytes[45] = char(bytes[45] ^ 1);
    QTest::newRow("a changed bit") << bytes;
    QTest::newRow("another entry") << QByteArray(good).replace("content.rtf", "another.rtf");
}

// An empty editor without a word; but what is then saved leaves the damaged file beside.
void tst_note_load::damagedZip() {
    QFETCH(QByteArray, zip);
    for (const QByteArray& text : {QByteArray("short"), kLong}) {
        NoteMaker note;
        note.Session.Settings.CompressSize = 1;
        note.Put(kZip, zip);
        const LoadedNote loaded = note.Load();
        QCOMPARE(loaded.State, NoteState::Shown);
        QVERIFY(loaded.Rtf.isEmpty() && loaded.Problem.isEmpty());
        QCOMPARE(note.Bytes(kZip), zip);
        const auto saved = note.Save(text, loaded);
        QVERIFY(saved && saved->Failures.empty());
        const QString kept = u"content (kept 2026-11-21 06.30.43).zip"_s;
        QCOMPARE(note.Contents(), QStringList({kept, text == kLong ? kZip : kRtf}));
        QCOMPARE(note.Bytes(kept), zip);
        QVERIFY(saved->Notice.endsWith(kept));
        QCOMPARE(note.Load().Rtf, text);
    }
    // What lies beside it, however old, may be the only text that is left.
    NoteMaker note;
    note.Put(kRtf, "older");
    note.SetTime(kRtf, QDateTime({2020, 1, 1}, {0, 0}));
    note.Put(kZip, zip);
    const auto saved = note.Save("text", note.Load());
    QCOMPARE(saved->KeptFiles.size(), 2);
    QCOMPARE(note.Bytes(QFileInfo(saved->KeptFiles.last()).fileName()), QByteArray("older"));
}

void tst_note_load::restores() {
    NoteMaker note;
    QVERIFY(note.Save("text", {}));
    LoadedNote loaded = note.Load();
    QCOMPARE(RestoreNoteText(note.Place, loaded.OnDisk), QByteArray("text"));
    QVERIFY(note.Save("more", loaded)->KeptFiles.isEmpty());
    // A compressed note empties the editor; its text is not lost to what is typed then.
    note.Session.Settings.CompressSize = 1;
    QVERIFY(note.Save(kLong, note.Load()));
    loaded = note.Load();
    QCOMPARE(RestoreNoteText(note.Place, loaded.OnDisk), QByteArray());
    const auto saved = note.Save("x", loaded);
    QCOMPARE(saved->KeptFiles.size(), 1);
    QCOMPARE(ReadZippedNote(ReadFileBytes(saved->KeptFiles.first(), kMaxNoteText).value()).Rtf, kLong);
}

QTEST_GUILESS_MAIN(tst_note_load)
#include "tst_note_load.moc"
