#include "organiser/organiser.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

class tst_organiser : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void renumbering_data();
    void renumbering();
    void newNames();
    void operations();
    void failures();
};

namespace {

std::vector<StoreButton> ButtonsOf(const QStringList& names) {
    std::vector<StoreButton> buttons;
    for (const QString& name : names)
        buttons.push_back(ButtonOfName(name));
    return buttons;
}

// What the rename of each name gives, in order: "old -> new".
QStringList Lines(const Renames& renames) {
    QStringList lines;
    for (const auto& [from, to] : renames)
        lines.append(from + u" -> " + to);
    return lines;
}

} // namespace

void tst_organiser::renumbering_data() {
    QTest::addColumn<QStringList>("order");  // the wanted one, by present names
    QTest::addColumn<QStringList>("others"); // in the folder
    QTest::addColumn<QStringList>("renames");
    QTest::newRow("only what is wrong; an empty tag is added")
        << QStringList{u"[001] a [1].pnd"_s, u"[003] b.LNK"_s} << QStringList()
        << QStringList{u"[003] b.LNK -> [002] b [].LNK"_s};
    QTest::newRow("a picture goes along, the first of two, in small letters")
        << QStringList{u"Tool.exe"_s} << QStringList{u"tool.ICO"_s, u"Tool.JPG"_s}
        << QStringList{u"Tool.exe -> [001] Tool [].exe"_s, u"Tool.JPG -> [001] Tool [].jpg"_s};
    QTest::newRow("a picture of two goes with the first")
        << QStringList{u"Foo.lnk"_s, u"Foo.url"_s} << QStringList{u"Foo.png"_s}
        << QStringList{u"Foo.lnk -> [001] Foo [].lnk"_s, u"Foo.png -> [001] Foo [].png"_s,
                       u"Foo.url -> [002] Foo [].url"_s};
    QTest::newRow("one title: the other one first")
        << QStringList{u"[000] a [].x"_s, u"[001] a [].x"_s} << QStringList()
        << QStringList{u"[001] a [].x -> [002] a [].x"_s, u"[000] a [].x -> [001] a [].x"_s};
    QTest::newRow("one title changes places, also where case differs")
        << QStringList{u"[002] 100%1 [].x"_s, u"[001] 100%1 [].X"_s} << QStringList{u"[003] 100%1 [].x"_s}
        << QStringList{u"[002] 100%1 [].x -> [004] 100%1 [].x"_s, u"[001] 100%1 [].X -> [002] 100%1 [].X"_s,
                       u"[004] 100%1 [].x -> [001] 100%1 [].x"_s};
    QTest::newRow("a picture of nobody gives way")
        << QStringList{u"[002] a [].x"_s} << QStringList{u"[002] a [].png"_s, u"[001] a [].png"_s}
        << QStringList{u"[002] a [].x -> [001] a [].x"_s, u"[001] a [].png -> [001] a [] (2).png"_s,
                       u"[002] a [].png -> [001] a [].png"_s};
    QTest::newRow("no point, and brackets, do not grow")
        << QStringList{u"[001] run [].run"_s, u"[002] x [].[001] x [y]"_s} << QStringList() << QStringList();
}

void tst_organiser::renumbering() {
    QFETCH(const QStringList, order);
    QFETCH(const QStringList, others);
    QTEST(Lines(RenumberButtons(ButtonsOf(order), order + others)), "renames");
}

void tst_organiser::newNames() {
    QCOMPARE(FolderOfName(u"[001] Old [x]"_s).Title, u"Old [x]"_s);
    QCOMPARE(RetitledFolder(u"[007] a"_s, u"b. "_s), u"[007] b"_s);
    QCOMPARE(RetitledFolder(u"[007] a"_s, {}), u"[007]"_s);
    QCOMPARE(RetitledFolder(u"a"_s, u"nul"_s), u"nul-"_s);
    QCOMPARE(RetitledButton(ButtonOfName(u"[007] a [11].LNK"_s), u"b"_s), u"[007] b [11].LNK"_s);
    QCOMPARE(AddedButtonName({}, u"a/b.pnd"_s), u"[001] a-b.pnd"_s);
    QCOMPARE(AddedButtonName(ButtonsOf({u"[001] a [x].pnd"_s}), u"b.url"_s), u"[002] b [x].url"_s);
}

void tst_organiser::operations() {
    const StoreBuilder store;
    const QString group = u"Setting/[001] A/[001] Letters/"_s;
    for (const char* name : {"[001] a [1].pnd", "[002] B [2].url", "[002] B [2].png", "[003] c.LNK"})
        store.AddFile(group + QLatin1String(name), name);
    store.AddFile(group + u".paneda-deleted-1/x"_s);
    for (const auto& [name, age] : {std::pair(u".paneda-old"_s, 3), std::pair(u".paneda-young"_s, 0)}) {
        store.AddFile(group + name);
        QFile file(store.Path(group + name));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(
            file.setFileTime(QDateTime::currentDateTime().addDays(-age), QFileDevice::FileModificationTime));
    }
    store.AddFile(u"source.gif"_s, "picture");
    store.AddFolder(u"Setting/[004] C"_s);
    Organiser organiser(store.Path(u"Setting"_s));
    organiser.Load();
    organiser.Select(StoreLevel::Buttons, 2);
    QVERIFY(organiser.Move(StoreLevel::Buttons, 0));
    QCOMPARE(organiser.Titles(StoreLevel::Buttons), QStringList({u"c"_s, u"a.pnd"_s, u"B.url"_s}));
    QCOMPARE(organiser.Selected(StoreLevel::Buttons), 0);
    // Another window has renamed the first of two of one title.
    QVERIFY(QFile::rename(store.Path(group + u"[001] c [].LNK"_s), store.Path(group + u"[001] a [].LNK"_s)));
    organiser.RereadButtons(u"[001] a [].LNK"_s);
    QCOMPARE(organiser.Selected(StoreLevel::Buttons), 0);
    QVERIFY(organiser.Retitle(StoreLevel::Buttons, u"c"_s));
    // A picture in the way, and one that would be shown instead, are kept.
    for (const QString& picture : {u"bmp"_s, u"jpg"_s, u"GIF"_s})
        store.AddFile(group + u"[001] c []."_s + picture, "own");
    QVERIFY(organiser.SetPicture(store.Path(u"source.gif"_s), true));
    QVERIFY(organiser.SetPicture(store.Path(group + u"[001] c [].gif"_s), true));
    organiser.Select(StoreLevel::Buttons, 2);
    QVERIFY(organiser.SetPicture(store.Path(group + u"[001] c [].gif"_s), false));
    QVERIFY(organiser.Sort(StoreLevel::Buttons)); // capitals first
    QVERIFY(organiser.Retitle(StoreLevel::Buttons, u"b"_s));
    store.AddFile(group + u"[004] New [].png"_s, "of nobody");
    QVERIFY(organiser.AddButton({u"New.pnd"_s, LinkResult{u"New"_s, u"C:\\x"_s, {}, {}, {}, {}}, false}));
    QCOMPARE(store.Bytes(group + u"[004] New [].pnd"_s).left(26),
             QByteArray("[Properties]\r\nTarget=C:\\x\r\n").left(26));
    organiser.Select(StoreLevel::Buttons, 1);
    QVERIFY(organiser.Delete(StoreLevel::Buttons));
    QCOMPARE(organiser.Selected(StoreLevel::Buttons), 1);
    organiser.Select(StoreLevel::Categories, 1);
    QVERIFY(organiser.AddFolder(StoreLevel::Groups, u"G"_s));
    QVERIFY(organiser.Retitle(StoreLevel::Categories, u"c"_s));
    QVERIFY(organiser.AddFolder(StoreLevel::Categories, u"D"_s));
    QCOMPARE(organiser.Titles(StoreLevel::Groups), QStringList());
    const auto entries = store.Entries().filter(QRegularExpression(u"^Setting/."_s));
    QCOMPARE(entries,
             QStringList(
                 {u"Setting/[001] A/"_s, u"Setting/[001] A/[001] Letters/"_s, group + u".paneda-young"_s,
                  group + u"[001] b [2].gif"_s, group + u"[001] b [2].url"_s, group + u"[001] c [] (2).GIF"_s,
                  group + u"[001] c [] (2).bmp"_s, group + u"[003] c [].LNK"_s, group + u"[003] c [].gif"_s,
                  group + u"[004] New [] (2).png"_s, group + u"[004] New [].pnd"_s, u"Setting/[002] c/"_s,
                  u"Setting/[002] c/[001] G/"_s, u"Setting/[003] D/"_s}));
    QCOMPARE(organiser.CategoryNow(u"[004] C"_s), u"[002] c"_s);
}

void tst_organiser::failures() {
    const StoreBuilder store;
    store.AddFolder(u"Setting/[001] A"_s);
    store.AddFolder(u"Setting/[002] B"_s);
    store.AddFile(u"Setting/[001] B"_s);
    Organiser organiser(store.Path(u"Setting"_s));
    organiser.Load();
    organiser.Select(StoreLevel::Categories, 1);
    const FileResult moved = organiser.Move(StoreLevel::Categories, 0);
    QVERIFY(!moved && moved.error().Path.endsWith(u"[002] B"_s) &&
            moved.error().Reason.contains(u"[001] B"_s));
    QCOMPARE(organiser.Titles(StoreLevel::Categories), QStringList({u"A"_s, u"B"_s}));
    QCOMPARE(organiser.Selected(StoreLevel::Categories), 1);
    QVERIFY(organiser.HasChanges());
    // Nothing is renamed when a name would be too long.
    const QString longName = QString(248, u'l');
    store.AddFile(u"Setting/[002] B/[001] G/[002] a [].x"_s);
    store.AddFile(u"Setting/[002] B/[001] G/[003] b [].x"_s);
    store.AddFile(u"Setting/[002] B/[001] G/"_s + longName + u".x"_s);
    organiser.Reread(StoreLevel::Groups);
    const QStringList entries = store.Entries();
    const FileResult numbered = organiser.Sort(StoreLevel::Buttons);
    QVERIFY(!numbered && numbered.error().Path.contains(longName));
    QCOMPARE(store.Entries(), entries);
    // What somebody else has renamed is not deleted.
    QVERIFY(
        QFile::rename(store.Path(u"Setting/[002] B/[001] G"_s), store.Path(u"Setting/[002] B/[001] H"_s)));
    QVERIFY(!organiser.Delete(StoreLevel::Groups));
    QCOMPARE(organiser.Titles(StoreLevel::Groups), QStringList(u"H"_s));
    // Neither becomes a hidden name.
    store.AddFolder(u"Setting/Plain"_s);
    organiser.Load();
    for (const QString& name : {u".x"_s, QString()})
        QVERIFY(!organiser.Retitle(StoreLevel::Categories, name));
}

QTEST_GUILESS_MAIN(tst_organiser)
#include "tst_organiser.moc"
