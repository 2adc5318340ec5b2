#include "notes/edit_lock.h"
#include "notes/note_maker.h"

#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

class tst_edit_lock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void life();
};

void tst_edit_lock::life() {
    NoteMaker note(true);
    const auto editing = [&note] { return note.Key(u"Editing"_s); };
    LoadedNote ours = note.Load();
    const LoadedNote theirs = note.Load();
    QVERIFY(!ours.Lock.LockedByOther);

    const QString stamp = u"2026-11-21 06:30:43 Ann"_s;
    QVERIFY(BeginEdit(note.Place, note.Session, note.Disk).MayEdit);
    QCOMPARE(editing(), stamp);
    // Somebody who loaded before that is refused at the first key, and so is the holder who comes back.
    for (const QString& user : {u"Bob"_s, u"Ann"_s}) {
        NoteSession session = note.Session;
        session.UserName = user;
        session.Now = session.Now.addDays(30);
        const FirstEdit refused = BeginEdit(note.Place, session, note.Disk);
        QVERIFY(!refused.MayEdit && refused.Lock.LockedByOther);
        QCOMPARE(LockHolder(refused.Lock.EditingValue), u"Ann"_s);
        QCOMPARE(refused.Notice, u"Someone is editing this note! Editing Not Allow"_s);
        QCOMPARE(editing(), stamp);
    }
    // A save that does not reach the text leaves it; so does one by a user who found the note locked.
    note.Disk.StepsLeft = 0;
    QVERIFY(!note.Save("text", ours));
    note.Disk.StepsLeft = INT_MAX;
    LoadedNote locked = note.Load();
    QVERIFY(locked.Lock.LockedByOther);
    QVERIFY(note.Save("theirs", locked));
    QCOMPARE(editing(), stamp);
    // The holder's save clears it, and then anybody may edit.
    QVERIFY(note.Save("text", ours));
    QCOMPARE(editing(), QString());
    QVERIFY(BeginEdit(note.Place, note.Session, note.Disk).MayEdit);
}

QTEST_GUILESS_MAIN(tst_edit_lock)
#include "tst_edit_lock.moc"
