#include "notes/note_maker.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kRtf = u"content.rtf"_s;
const QString kZip = u"content.zip"_s;
// With a limit of 1 kB the first lies above it, the second below.
const QByteArray kLong(2000, 'L');
const QByteArray kShort = "short";

} // namespace

class tst_note_save : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void compressesAboveTheLimit();
    void endsAnywhere_data();
    void endsAnywhere();
    void keys();
    void keepsOtherTexts_data();
    void keepsOtherTexts();
    void failures();
    void linksOfOthers();
    void isForTheSameUsers();
};

void tst_note_save::compressesAboveTheLimit() {
    const auto form = [](int kilobytes, int size) {
        NoteMaker note;
        note.Session.Settings.CompressSize = kilobytes;
        const QByteArray text(size, 'x');
        return note.Save(text, {}) && note.Load().Rtf == text ? note.Contents().join(u' ') : QString();
    };
    QCOMPARE(form(100, 102'400), kRtf);
    QCOMPARE(form(100, 102'401), kZip);
    QCOMPARE(form(0, 102'401), kRtf);
    QCOMPARE(form(3'000'000, 102'401), kRtf); // beyond an int of bytes
}

void tst_note_save::endsAnywhere_data() {
    QTest::addColumn<QByteArray>("before"); // null: no file yet
    QTest::addColumn<QByteArray>("after");
    const QByteArray otherLong(3000, 'M');
    QTest::newRow("new rtf") << QByteArray() << kShort;
    QTest::newRow("new zip") << QByteArray() << kLong;
    QTest::newRow("rtf to rtf") << QByteArray("old") << kShort;
    QTest::newRow("rtf to zip") << kShort << kLong;
    QTest::newRow("zip to rtf") << kLong << kShort;
    QTest::newRow("zip to zip") << kLong << otherLong;
}

// Ends a save behind each of its steps. A reader finds the old text or the new one, never the old one after
// the new; the save's result tells which; and the next save leaves one file and nothing beside it.
void tst_note_save::endsAnywhere() {
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    int steps = 100;
    for (int ending = 0; ending <= steps; ++ending) {
        NoteMaker note(true);
        note.Session.Settings.CompressSize = 1;
        LoadedNote loaded;
        if (!before.isNull()) {
            QVERIFY(note.Save(before, {}));
            loaded = note.Load();
        }
        note.Disk.StepsLeft = ending;
        const auto saved = note.Save(after, loaded);
        const int unused = note.Disk.StepsLeft;
        note.Disk.StepsLeft = INT_MAX;
        if (unused >= 0) {
            steps = ending - unused;
            QVERIFY(saved && saved->Failures.empty());
        }
        const bool hasText = FindNoteForm(note.Place.NoteFolder) != NoteForm::None;
        QCOMPARE(hasText, saved.has_value() || !before.isNull());
        if (!hasText)
            continue;
        const LoadedNote seen = note.Load();
        QCOMPARE(seen.Rtf, saved ? after : before);
        QVERIFY(!seen.OnDisk.Unseen);

        // Goes on from what the first save returned, as the window would.
        if (saved)
            loaded.OnDisk = saved->OnDisk;
        for (const QByteArray& next : QByteArrayList{kShort + "er", kLong + "er"}) {
            const auto again = note.Save(next, loaded);
            QVERIFY(again && again->Failures.empty() && again->Notice.isEmpty());
            QCOMPARE(note.Contents(), QStringList(next.size() > 1024 ? kZip : kRtf));
            QCOMPARE(note.Load().Rtf, next);
            loaded.OnDisk = again->OnDisk;
        }
    }
    QVERIFY(steps < 100);
}

void tst_note_save::keys() {
    NoteMaker note(true);
    note.Put(u"properties.INI"_s, "; mine\r\n[Properties]\r\nName=N\r\nEditing=2026-11-21 06:00:00 Ann\r\n");
    QVERIFY(note.Save(kShort, {}));
    const QByteArray stamp = "Last All Level Edit Time=2026-11-21 06:30:43\r\n";
    QCOMPARE(
        note.Bytes(u"properties.INI"_s),
        "; mine\r\n[Properties]\r\nName=N\r\nEditing=\r\nLast Edit User=Ann\r\nLast Edit Date=2026-11-21\r\n"
        "Last Edit Time=06:30:43\r\n" +
            stamp);
    for (const QString& folder : {kParent, kRoot})
        QCOMPARE(note.Store.Bytes(folder + u"/Properties.ini"_s), "[Properties]\r\n" + stamp);
    QVERIFY(!note.Store.Entries().contains(u"Data/Properties.ini"_s));
}

using Meanwhile = std::function<void(NoteMaker&)>;
Q_DECLARE_METATYPE(Meanwhile)

void tst_note_save::keepsOtherTexts_data() {
    QTest::addColumn<QByteArray>("text");     // as loaded
    QTest::addColumn<Meanwhile>("meanwhile"); // what somebody else does then
    QTest::addColumn<QString>("kept");        // the file beside the note; empty: none
    QTest::addColumn<QByteArray>("keptText");
    QTest::addColumn<QString>("told"); // how the notice begins
    const QDateTime otherTime({2026, 11, 20}, {23, 59, 58});
    const auto other = [otherTime](const QByteArray& text) {
        return [text, otherTime](NoteMaker& note) {
            note.Session.UserName = u"Bob/x"_s;
            const LoadedNote loaded = note.Load();
            QVERIFY(note.Save(text, loaded));
            const QString folder = note.Place.NoteFolder;
            note.SetTime(NoteContentFile(folder, FindNoteForm(folder)).Name(), otherTime);
            note.Session.UserName = u"Ann"_s;
        };
    };
    const QString otherName = u"content (other 2026-11-20 23.59.58 Bob-x)"_s;
    const QString keptName = u"content (kept 2026-11-21 06.30.43)"_s;
    const QString byBob = u"Bob/x has saved"_s;
    const auto add = [](const char* tag, const QByteArray& text, const Meanwhile& meanwhile,
                        const QString& kept = {}, const QByteArray& keptText = {}, const QString& told = {}) {
        QTest::newRow(tag) << text << meanwhile << kept << keptText << told;
    };
    add("rtf", kShort, other("theirs"), otherName + u".rtf"_s, "theirs", byBob);
    add(
        "same size, same time", kShort,
        [](NoteMaker& note) {
            const QDateTime time = QFileInfo(note.Store.Path(note.In(kRtf))).lastModified();
            note.Put(kRtf, "SHORT");
            note.SetTime(kRtf, time);
        },
        u"*other*.rtf"_s, "SHORT", u"Ann has saved"_s);
    add("only touched", kShort, [otherTime](NoteMaker& note) { note.SetTime(kRtf, otherTime); });
    add("the very text that is saved", kShort, other("mine"));
    add(
        "a newer rtf beside the zip", kLong,
        [](NoteMaker& note) {
            note.Put(kRtf, "copied here");
            note.SetTime(kRtf, QDateTime::currentDateTime().addDays(1));
        },
        keptName + u".rtf"_s, "copied here", u"A second text"_s);
}

void tst_note_save::keepsOtherTexts() {
    QFETCH(QByteArray, text);
    QFETCH(Meanwhile, meanwhile);
    QFETCH(QString, kept);
    QFETCH(QByteArray, keptText);
    QFETCH(QString, told);
    NoteMaker note;
    note.Session.Settings.CompressSize = 1;
    QVERIFY(note.Save(text, {}));
    const LoadedNote loaded = note.Load();
    meanwhile(note);
    const qsizetype before = note.Contents().size();
    const auto saved = note.Save("mine", loaded);
    QVERIFY(saved && saved->Failures.empty());
    QCOMPARE(note.Load().Rtf, QByteArray("mine"));
    QVERIFY(note.Contents().contains(kRtf) && !note.Contents().contains(kZip));
    QCOMPARE(saved->KeptFiles.size(), kept.isEmpty() ? 0 : 1);
    if (kept.isEmpty()) {
        QCOMPARE(saved->Notice, QString());
        QVERIFY(note.Contents().size() <= std::max<qsizetype>(before, 1));
        return;
    }
    const QString file = saved->KeptFiles.first();
    QVERIFY2(QRegularExpression::fromWildcard(kept).match(QFileInfo(file).fileName()).hasMatch(),
             qPrintable(file));
    const QByteArray bytes = ReadFileBytes(file, 100'000).value();
    QCOMPARE(file.endsWith(u".zip"_s) ? ReadZippedNote(bytes).Rtf : bytes, keptText);
    QVERIFY2(saved->Notice.startsWith(told) && saved->Notice.endsWith(u'\r' + QDir::toNativeSeparators(file)),
             qPrintable(saved->Notice));
}

void tst_note_save::failures() {
    NoteMaker note(true);
    QVERIFY(note.Save("old", {}));
    LoadedNote loaded = note.Load();

    // Behind the text a failure is told and nothing more; the lock is given back all the same.
    note.SetKey(u"Editing"_s, u"2026-11-21 06:00:00 Ann"_s);
    QVERIFY(QFile::remove(note.Store.Path(u"Data/Tree/Properties.ini"_s)));
    note.Store.AddFolder(u"Data/Tree/Properties.ini"_s);
    const auto saved = note.Save("new", loaded);
    QVERIFY(saved);
    QCOMPARE(int(saved->Failures.size()), 1);
    QVERIFY(saved->Failures.front().Path.endsWith(u"Properties.ini"_s));
    QCOMPARE(note.Key(u"Editing"_s), QString());
    QCOMPARE(note.Load().Rtf, QByteArray("new"));

    // Another's text that cannot be kept is not written over.
    note.Disk.StepsLeft = 0;
    QVERIFY(!note.Save("newer", loaded));
    QCOMPARE(note.Bytes(kRtf), QByteArray("new"));
    note.Disk.StepsLeft = INT_MAX;

    QVERIFY(QDir(note.Store.Path(kParent)).removeRecursively());
    QVERIFY(!note.Save("newest", loaded));
    QVERIFY(!note.Store.Entries().contains(kParent + u'/'));
}

// Another user of the tree puts links in the place of the files while the note is open.
void tst_note_save::linksOfOthers() {
    for (const QString& name : {kRtf, kZip, u"Properties.ini"_s}) {
        for (const QString& goal : {u"private"_s, u"missing"_s}) {
            NoteMaker note;
            note.Store.AddFile(u"private"_s, "private");
            QVERIFY(note.Save(kShort, {}));
            const LoadedNote loaded = note.Load();
            QFile::remove(note.Store.Path(note.In(name)));
            if (!MakeSymbolicLink(note.Store.Path(goal), note.Store.Path(note.In(name))))
                QSKIP("There are no links here.");
            const auto saved = note.Save("mine", loaded);
            const QString told = saved ? FailureText(saved->Failures) : saved.error().Text();
            QVERIFY2(told.contains(QDir::toNativeSeparators(note.Store.Path(note.In(name)))),
                     qPrintable(told));
            QVERIFY2(told.contains(u"link"), qPrintable(told));
            QCOMPARE(saved.has_value(), name == u"Properties.ini");
            QCOMPARE(note.Store.Bytes(u"private"_s), "private"_ba);
            QVERIFY(!QFileInfo::exists(note.Store.Path(u"missing"_s)));
            for (const QString& file : note.Contents())
                QVERIFY(note.Load().Rtf != "private" && (file == name || note.Bytes(file) != "private"));
        }
    }
}

// A private note stays private in its other form, and so does what is kept beside it.
void tst_note_save::isForTheSameUsers() {
    constexpr QFile::Permissions kPrivate(0x6600);
    NoteMaker note;
    note.Session.Settings.CompressSize = 1;
    QVERIFY(note.Save(kShort, {}));
    const auto permissionsOf = [&](const QString& name) {
        return QFile::permissions(note.Store.Path(note.In(name)));
    };
    if (!QFile::setPermissions(note.Store.Path(note.In(kRtf)), kPrivate) || permissionsOf(kRtf) != kPrivate)
        QSKIP("There are no such permissions here.");
    QVERIFY(note.Save(kLong, {}));
    QCOMPARE(note.Contents().size(), 2);
    for (const QString& file : note.Contents())
        QCOMPARE(permissionsOf(file), kPrivate);
    QVERIFY(note.Save(kShort, note.Load()));
    QCOMPARE(permissionsOf(kRtf), kPrivate);
}

QTEST_GUILESS_MAIN(tst_note_save)
#include "tst_note_save.moc"
