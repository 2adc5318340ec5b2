#include "core/files/ini_file.h"
#include "core/store/catalogue_loader.h"
#include "core/store/store_layout.h"
#include "support/store_builder.h"

#include <QDir>
#include <QTest>

#include <fstream>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_catalogue_loader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void scan_data();
    void scan();
    void drives();
    void folders();
    void oddNames();
    void longPath();
};

void tst_catalogue_loader::scan_data() {
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("expected");
    const auto add = [](const char* tag, const QStringList& files, const QStringList& expected) {
        QTest::newRow(tag) << files << expected;
    };
    add("prefix and text order", {u"general/"_s, u"[010] C/"_s, u"[002] B/"_s, u"[1000] D/"_s, u"Zeta/"_s},
        {u"Zeta | S"_s, u"[002] B | S"_s, u"[010] C | S"_s, u"[1000] D | S"_s, u"general | S"_s});
    // A listing comes in byte order with the extension, a group in that of names without it.
    add("buttons",
        {u"[001] A/[001] G/[002] Edit [11].lnk"_s, u"[001] A/[001] G/[001] Tool [B1 ].PND"_s,
         u"[001] A/[001] G/a.b.exe"_s, u"[001] A/[001] G/a b.txt"_s, u"[001] A/[001] G/a.url"_s,
         u"[001] A/[001] G/a-.url"_s, u"[001] A/[001] G/pic.PNG"_s, u"[001] A/[001] G/Properties.ini"_s,
         u"[001] A/[001] G/folder.lnk/inside.lnk"_s},
        {u"[001] A | S"_s, u"  [001] G #1"_s, u"    Properties.ini #1 | Properties | <>"_s,
         u"    [001] Tool [B1 ].PND #2 | [001] Tool [B1 ] | <B1>"_s,
         u"    [002] Edit [11].lnk #3 | [002] Edit [11] | <11>"_s, u"    a.url #7 | a | <>"_s,
         u"    a b.txt #4 | a b | <>"_s, u"    a-.url #5 | a- | <>"_s, u"    a.b.exe #6 | a.b | <>"_s});
    add("counts run over all", {u"A/G1/x"_s, u"A/G2/"_s, u"B/G1/y"_s, u"B/G1/z"_s, u"B/file"_s, u"file"_s},
        {u"A | S"_s, u"  G1 #1"_s, u"    x #1 | x | <>"_s, u"  G2 #2"_s, u"B | S"_s, u"  G1 #3"_s,
         u"    y #2 | y | <>"_s, u"    z #3 | z | <>"_s});
    add("kinds",
        {u"Dynamic Category/"_s, u"[001] Dynamic Category/G/x"_s, u"[002] dynamic category/"_s,
         u"[1000] Dynamic Category/"_s, u"[003]  Dynamic Category/"_s, u"[04] Dynamic Category/"_s,
         u"123456Dynamic Category/"_s},
        {u"123456Dynamic Category | T 0 <>"_s, u"Dynamic Category | S"_s,
         u"[001] Dynamic Category | T 1 <>"_s, u"  G #1"_s, u"    x #1 | x | <>"_s,
         u"[002] dynamic category | S"_s, u"[003]  Dynamic Category | S"_s, u"[04] Dynamic Category | S"_s,
         u"[1000] Dynamic Category | S"_s});
    add("tree names",
        {u"[001] Dynamic Category/properties.ini=[Properties]\ncategory=\"Work\""_s,
         u"[002] Dynamic Category/Properties.ini=[Properties]\nCategory="_s,
         u"[003] Dynamic Category/Properties.ini/"_s},
        {u"[001] Dynamic Category | T 0 <Work>"_s, u"[002] Dynamic Category | T 1 <>"_s,
         u"[003] Dynamic Category | T 2 <>"_s, u"  Properties.ini #1"_s});
    add("unfinished writes",
        {u"A/G/x.pnd"_s, u"A/G/.paneda-1x"_s, u"A/G/x.pnd.backup"_s, u"A/G/.hidden"_s, u"A/.hidden/x"_s},
        {u"A | S"_s, u"  G #1"_s, u"    x.pnd #1 | x | <>"_s, u"    x.pnd.backup #2 | x.pnd | <>"_s});
}

void tst_catalogue_loader::scan() {
    QFETCH(QStringList, files);
    QFETCH(QStringList, expected);
    const test::StoreBuilder store;
    store.AddFolder(u"Setting"_s);
    for (const QString& file : files) {
        const QString path = u"Setting/"_s + file.section(u'=', 0, 0);
        path.endsWith(u'/') ? store.AddFolder(path) : store.AddFile(path, file.section(u'=', 1).toUtf8());
    }
    QCOMPARE(test::Describe(LoadCatalogue(store.Scan())), expected);
}

void tst_catalogue_loader::drives() {
    const test::StoreBuilder store;
    store.AddFolder(u"Setting"_s);
    ScanOptions options = store.Scan();
    options.DriveTable[0] = true; // unused
    options.DriveOfProgram = true;
    QVERIFY(LoadCatalogue(options).empty()); // nowhere to put them
    store.AddFile(u"Setting/A/z/x"_s);
    store.AddFile(u"Setting/B/z/y"_s);
    const auto scan = [&options] { return test::Describe(LoadCatalogue(options)); };
    const QStringList before{u"A | S"_s, u"  z #1"_s, u"    x #1 | x | <>"_s};
    const QStringList behind{u"B | S"_s, u"  z #2"_s, u"    y #2 | y | <>"_s};
    options.DriveTable[1] = options.DriveTable[26] = true;
    const QStringList drives{u"  My Computer #3"_s, u"    Drive A #3 | Drive A | <>Drive A:"_s,
                             u"    Drive Z #4 | Drive Z | <>Drive Z:"_s,
                             u"    Drive 9 #5 | Drive 9 | <>Drive 9:"_s};
    QCOMPARE(scan(), before + drives + behind);
    QVERIFY(HasDriveButtons(LoadCatalogue(options)));
    options.DriveTable = {true};
    options.DriveOfProgram = false;
    QCOMPARE(scan(), before + behind);
    QVERIFY(!HasDriveButtons(LoadCatalogue(options)));
}

void tst_catalogue_loader::folders() {
    const test::StoreBuilder store;
    QVERIFY(LoadCatalogue(store.Scan()).empty());
    store.AddFile(u"SETTING/[001] A/[001] G/[001] x [1].lnk"_s);
    ScanOptions options = store.Scan();
    options.AppPath = u"E:\\"_s; // the root of a drive
    QCOMPARE(LoadCatalogue(options)[0].Groups[0].Buttons[0].Path,
             u"E:\\\\Setting\\[001] A\\[001] G\\[001] x [1].lnk"_s);
}

// Names that the stored form of a path cannot hold must not become buttons that open another file.
void tst_catalogue_loader::oddNames() {
    if (QDir::separator() != u'/')
        QSKIP("This file system takes no such names.");
    const test::StoreBuilder store;
    store.AddFolder(u"Setting/A/G"_s);
    store.AddFile(u"Setting/A/G/good 😀.lnk"_s);
    const std::string folder = store.Path(u"Setting/A/G/"_s).toStdString();
    for (const char* name : {"back\\slash.lnk", "bad\xFF utf8.lnk"})
        QVERIFY2(std::ofstream(folder + name).good(), name);
    QVERIFY(QFile::link(u"nowhere"_s, store.Path(u"Setting/A/G/dangling.lnk"_s)));
    QCOMPARE(test::Describe(LoadCatalogue(store.Scan())),
             (QStringList{u"A | S"_s, u"  G #1"_s, u"    good 😀.lnk #1 | good 😀 | <>"_s}));
}

// Longer than the 260 characters that some systems take without being asked for more.
void tst_catalogue_loader::longPath() {
    const test::StoreBuilder store;
    const QString file = u"Setting/%1/%1/%1.pnd"_s.arg(QString(120, u'x'));
    store.AddFile(file, "[Properties]\nTarget=C:\\a\n");
    QCOMPARE(LoadCatalogue(store.Scan()).at(0).Groups.at(0).Buttons.size(), 1U);
    QCOMPARE(ReadIni(u"Properties"_s, u"Target"_s, store.Path(file)), u"C:\\a"_s);
    QVERIFY(WriteIni(u"Properties"_s, u"Target"_s, u"C:\\b"_s, store.Path(file)));
    QCOMPARE(store.Bytes(file), "[Properties]\nTarget=C:\\b\n");
}

QTEST_GUILESS_MAIN(tst_catalogue_loader)
#include "tst_catalogue_loader.moc"
