#include "core/store/store_layout.h"
#include "support/store_builder.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_store_layout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstRun();
    void partial_data();
    void partial();
    void obstacles_data();
    void obstacles();
    void findsEntriesInAnyCase();
    void noFolder();
};

void tst_store_layout::firstRun() {
    const test::StoreBuilder store;
    QVERIFY(CreateMissingStore(store.AppFolder()).empty());
    const QStringList expected{u"Cache/"_s,
                               u"Data/"_s,
                               u"Data/Tree/"_s,
                               u"Setting/"_s,
                               u"Setting/[001] General/"_s,
                               u"Setting/[002] Dynamic Category/"_s,
                               u"Setting/[002] Dynamic Category/Properties.ini"_s,
                               u"Setting2/"_s,
                               u"Setting2/Tree.ini"_s,
                               u"setting.ini"_s};
    QCOMPARE(store.Entries(), expected);
    QCOMPARE(store.Bytes(u"setting.ini"_s), "[Systray]\r\ncountdown sound=Orin Tamber\r\n");
    QCOMPARE(store.Bytes(u"Setting/[002] Dynamic Category/Properties.ini"_s),
             "[Properties]\r\nCategory=Tree\r\n");
    QCOMPARE(store.Bytes(u"Setting2/Tree.ini"_s),
             "[Properties]\r\nPath=Data\\Tree\r\n[Note]\r\nBackground Color=0000FF\r\n"
             "Title Color=FFFF00\r\nTitle 2 Color=00FF00\r\n");
    store.AddFile(u"setting.ini"_s, "kept");
    QVERIFY(CreateMissingStore(store.AppFolder()).empty());
    QCOMPARE(store.Entries(), expected);
    QCOMPARE(store.Bytes(u"setting.ini"_s), "kept");
}

void tst_store_layout::partial_data() {
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("after");
    const QStringList setting{u"Setting/[001] General/"_s, u"Setting/[002] Dynamic Category/"_s,
                              u"Setting/[002] Dynamic Category/Properties.ini"_s};
    QTest::newRow("trees are kept") << QStringList{u"Setting2/Mine.ini"_s, u"Setting2/"_s}
                                    << QStringList{u"Cache/"_s, u"Setting/"_s} + setting +
                                           QStringList{u"Setting2/"_s, u"Setting2/Mine.ini"_s,
                                                       u"setting.ini"_s};
    QTest::newRow("no trees beside a setting")
        << QStringList{u"Setting/"_s} << QStringList{u"Cache/"_s, u"Setting/"_s};
    QTest::newRow("other case of letters")
        << QStringList{u"SETTING/"_s, u"cache/"_s} << QStringList{u"SETTING/"_s, u"cache/"_s};
    QTest::newRow("no setting.ini") << QStringList{u"Setting/[001] A/"_s, u"Cache/"_s}
                                    << QStringList{u"Cache/"_s, u"Setting/"_s, u"Setting/[001] A/"_s};
}

void tst_store_layout::partial() {
    QFETCH(QStringList, present);
    const test::StoreBuilder store;
    for (const QString& entry : present)
        entry.endsWith(u'/') ? store.AddFolder(entry) : store.AddFile(entry);
    QVERIFY(CreateMissingStore(store.AppFolder()).empty());
    QTEST(store.Entries(), "after");
}

// A file stands where a folder should be.
void tst_store_layout::obstacles_data() {
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("setting") << u"Setting"_s << false;
    QTest::newRow("trees") << u"Setting2"_s << true;
    QTest::newRow("tree data") << u"Data"_s << true;
}

void tst_store_layout::obstacles() {
    QFETCH(QString, obstacle);
    QFETCH(bool, goesOn);
    const test::StoreBuilder store;
    store.AddFile(obstacle, "kept");
    const std::vector<FileError> failures = CreateMissingStore(store.AppFolder());
    QVERIFY(!failures.empty());
    QVERIFY(FailureText(failures).startsWith(QDir::toNativeSeparators(store.Path(obstacle)) + u": "_s));
    QCOMPARE(store.Bytes(obstacle), "kept");
    QCOMPARE(store.Entries().contains(u"Cache/"_s), goesOn);
    QCOMPARE(store.Entries().contains(u"setting.ini"_s), goesOn);
}

void tst_store_layout::findsEntriesInAnyCase() {
    const test::StoreBuilder store;
    QCOMPARE(FindEntry(store.AppFolder(), u"Image.png"_s), store.Path(u"Image.png"_s));
    store.AddFile(u"image.PNG"_s);
    QCOMPARE(QFileInfo(FindEntry(store.AppFolder(), u"Image.png"_s)), QFileInfo(store.Path(u"image.PNG"_s)));
    store.AddFile(u"IMAGE.png"_s);
    if (store.Entries().size() < 2)
        QSKIP("This file system looks at no case itself.");
    QCOMPARE(FindEntry(store.AppFolder(), u"Image.png"_s), store.Path(u"IMAGE.png"_s)); // first in byte order
    store.AddFile(u"Image.png"_s);
    QCOMPARE(FindEntry(store.AppFolder(), u"Image.png"_s), store.Path(u"Image.png"_s));
}

void tst_store_layout::noFolder() {
    const test::StoreBuilder elsewhere;
    const QString before = QDir::currentPath();
    QDir::setCurrent(elsewhere.AppFolder());
    const std::vector<FileError> failures = CreateMissingStore({});
    QDir::setCurrent(before);
    QVERIFY(failures.empty());
    QVERIFY(elsewhere.Entries().isEmpty());
}

QTEST_GUILESS_MAIN(tst_store_layout)
#include "tst_store_layout.moc"
