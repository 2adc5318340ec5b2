#include "notes/note_document.h"
#include "notes/note_maker.h"

#include <QRegularExpression>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kRtf = u"content.rtf"_s;
const QString kKept = u"content (kept 2026-11-21 06.30.43).rtf"_s;

} // namespace

class tst_note_document : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatTheEditorDoesNotHold_data();
    void keepsWhatTheEditorDoesNotHold();
    void opensAnotherNote();
    void firstEditAndUndo();
};

void tst_note_document::keepsWhatTheEditorDoesNotHold_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<bool>("kept");
    QTest::addColumn<QString>("notice"); // a part of it
    QTest::newRow("rich text") << QByteArray("{\\rtf1 words}") << false << false << QString();
    QTest::newRow("empty file") << QByteArray("") << false << false << QString();
    QTest::newRow("no rich text") << QByteArray("plain words") << false << true << u"not a rich text"_s;
    QTest::newRow("tracked changes") << QByteArray("{\\rtf1{\\*\\revtbl{A;}{B;}}\\revised\\revauth1 words}")
                                     << true << true << QString();
    QTest::newRow("too much to lay out")
        << "{\\rtf1 " + QByteArray("\\trowd\\cellx9\\pard\\intbl words\\cell\\row").repeated(30000) + '}'
        << true << true << u"table cells.*shown as plain text and cannot be changed"_s;
}

void tst_note_document::keepsWhatTheEditorDoesNotHold() {
    QFETCH(const QByteArray, text);
    QFETCH(const bool, kept);
    NoteMaker note;
    note.Put(kRtf, text);
    QTextDocument document(u"what was there"_s);
    NoteDocument editor(document, note.Disk, {});
    const auto view = editor.Open(note.Place, note.Session);
    QVERIFY(view && view->State == NoteState::Shown);
    QTEST(view->ReadOnly, "readOnly");
    QFETCH(const QString, notice);
    QVERIFY2(view->Notice.contains(QRegularExpression(notice)), qPrintable(view->Notice));
    QVERIFY(!document.isModified() && document.toPlainText() != u"what was there"_s);
    QTextCursor(&document).insertText(u"mine "_s);
    const auto saved = editor.Save(note.Session);
    QVERIFY(saved && !document.isModified());
    QCOMPARE(note.Contents(), kept ? QStringList({kKept, kRtf}) : QStringList(kRtf));
    QVERIFY(!kept || note.Bytes(kKept) == text);
    QVERIFY(note.Bytes(kRtf).contains("mine"));
    // Kept once.
    QVERIFY(editor.Save(note.Session)->KeptFiles.isEmpty());
}

void tst_note_document::opensAnotherNote() {
    NoteMaker note;
    note.Session.Settings.FontName = u"Some Font"_s;
    const NotePlace other{note.Store.Path(kParent), note.Place.TreeRoot, false};
    QTextDocument document;
    int works = 0;
    NoteDocument editor(document, note.Disk, {}, [&works](const std::function<void()>& work) {
        ++works;
        work();
    });
    QVERIFY(editor.Open(note.Place, note.Session));
    QVERIFY(note.Bytes(kRtf).contains("Some Font"));
    QTextCursor(&document).insertText(u"first"_s);
    // One that cannot be saved stays open.
    note.Disk.StepsLeft = 0;
    QVERIFY(!editor.Open(other, note.Session));
    QCOMPARE(document.toPlainText(), u"first"_s);
    note.Disk.StepsLeft = INT_MAX;
    QVERIFY(editor.Open(other, note.Session));
    QVERIFY(note.Bytes(kRtf).contains("first") && document.isEmpty());
    QVERIFY(editor.StoreWidth(700));
    QCOMPARE(note.Key(u"Width"_s, kParent), u"700"_s);
    // Each part that uses the disk goes through the worker.
    QCOMPARE(works, 5);
}

void tst_note_document::firstEditAndUndo() {
    NoteMaker note(true);
    note.Put(kRtf, "{\\rtf1 words}");
    QTextDocument document;
    NoteDocument editor(document, note.Disk, {});
    QVERIFY(editor.Open(note.Place, note.Session));
    note.SetKey(u"Editing"_s, u"2026-11-21 06:00:00 Bob"_s);
    QTextCursor(&document).insertText(u"x"_s);
    QVERIFY(!editor.BeginEdit(note.Session).MayEdit);
    QCOMPARE(document.toPlainText(), u"words"_s);
    QVERIFY(!document.isModified() && editor.ReleaseLock());
    QTextCursor(&document).insertText(u"y"_s);
    QVERIFY(editor.BeginEdit(note.Session).MayEdit);
    QVERIFY(editor.Save(note.Session));
    QCOMPARE(note.Key(u"Editing"_s), QString());
}

QTEST_MAIN(tst_note_document)
#include "tst_note_document.moc"
