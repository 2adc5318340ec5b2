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
    void partial();
    void obstacles();
    void findsEntriesInAnyCase();
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

void tst_store_layout::partial() {
    const auto after = [](const QStringList& present) {
        const test::StoreBuilder store;
        for (const QString& entry : present)
            entry.endsWith(u'/') ? store.AddFolder(entry) : store.AddFile(entry);
        return CreateMissingStore(store.AppFolder()).empty() ? store.Entries() : QStringList();
    };
    // Trees are kept, and not made for a setting that is there.
    const QStringList kept = after({u"Setting2/Mine.ini"_s});
    QVERIFY(kept.contains(u"Setting/[001] General/"_s) && kept.contains(u"Setting2/Mine.ini"_s));
    QVERIFY(!kept.contains(u"Setting2/Tree.ini"_s) && !kept.contains(u"Data/"_s));
    QCOMPARE(after({u"Setting/"_s}), (QStringList{u"Cache/"_s, u"Setting/"_s}));
    const QStringList otherCase{u"SETTING/"_s, u"cache/"_s};
    QCOMPARE(after(otherCase), otherCase);
}

// A file stands where a folder should be.
void tst_store_layout::obstacles() {
    for (const QString& obstacle : {u"Setting"_s, u"Setting2"_s, u"Data"_s}) {
        const test::StoreBuilder store;
        store.AddFile(obstacle, "kept");
        const std::vector<FileError> failures = CreateMissingStore(store.AppFolder());
        QVERIFY(!failures.empty());
        QCOMPARE(failures.front().Path, QDir::toNativeSeparators(store.Path(obstacle)));
        QCOMPARE(store.Bytes(obstacle), "kept");
        // Without the first folder nothing more is made.
        QCOMPARE(store.Entries().contains(u"Cache/"_s), obstacle != u"Setting");
    }
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
}

QTEST_GUILESS_MAIN(tst_store_layout)
#include "tst_store_layout.moc"
