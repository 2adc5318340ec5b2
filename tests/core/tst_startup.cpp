#include "core/settings/startup.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_startup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void folderWithBackslash();
    void freshFolder();
    void cache_data();
    void cache();
    void failuresAreToldAndPassedOver();
    void saveAndLoad();
};

void tst_startup::folderWithBackslash() {
    const DriveMap drives = DriveMap::FromMountPoints({});
    AppState state;
    for (const QString& folder : {u"/opt/paneda"_s, u"/opt/pan\\eda"_s}) {
        state.AppFolder = folder;
        state.AppPath = drives.ToStored(folder);
        QCOMPARE(FolderProblem(state).contains(folder), folder.contains(u'\\'));
    }
}

void tst_startup::freshFolder() {
    const test::StoreBuilder store;
    AppState state = store.State();
    const PanelLoad load = LoadPanelState(state);
    QVERIFY(load.Failures.empty() && !load.CacheValid);
    QCOMPARE(test::Describe(state.Catalogue), (QStringList{u"[001] General | S"_s, u"  My Computer #1"_s,
                                                           u"    Drive C #1 | Drive C | <>Drive C:"_s,
                                                           u"[002] Dynamic Category | T 0 <Tree>"_s}));
    QCOMPARE(state.Countdown.Sound, u"Orin Tamber"_s);
}

void tst_startup::cache_data() {
    QTest::addColumn<bool>("ignore");
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("valid");
    QTest::newRow("cached") << false << u"2.0"_s << true;
    QTest::newRow("reload") << true << u"2.0"_s << false;
    QTest::newRow("another version") << false << u"2.1"_s << false;
}

// A change made by hand is seen only when the store is scanned.
void tst_startup::cache() {
    QFETCH(bool, ignore);
    QFETCH(QString, version);
    QFETCH(bool, valid);
    const test::StoreBuilder store;
    AppState state = store.State();
    LoadPanelState(state);
    const PictureRecord pictures{u"Walnut"_s, 5, {}, {7, 8}};
    WriteCache(state, pictures);
    store.AddFolder(u"Setting/[003] Late"_s);
    AppState again = store.State();
    again.IgnoreCache = ignore;
    again.ProductVersion = version;
    const PanelLoad load = LoadPanelState(again);
    QCOMPARE(load.CacheValid, valid);
    QCOMPARE(again.Catalogue.size(), valid ? 2U : 3U);
    if (valid) {
        QVERIFY(load.Cache.Pictures == pictures);
        QVERIFY(load.Cache.HasDriveButtons);
        QVERIFY(again.Catalogue == state.Catalogue);
    }
}

void tst_startup::failuresAreToldAndPassedOver() {
    const test::StoreBuilder store;
    store.AddFile(u"Setting"_s);
    store.AddFolder(u"config"_s);
    AppState state = store.State();
    const PanelLoad load = LoadPanelState(state);
    QCOMPARE(load.Failures.size(), 2U);
    QVERIFY(state.Catalogue.empty());
    QCOMPARE(state.ButtonsPerRow, 5.0);
    WriteCache(state, {}); // no folder to write it to
    QVERIFY(!SaveAtExit(state));
}

void tst_startup::saveAndLoad() {
    const test::StoreBuilder store;
    AppState state = store.State();
    LoadPanelState(state);
    state.PanelTop = 300;
    state.PanelLeft = 450;
    state.SelectedCategory = 1;
    state.Catalogue[1].TreeName = u"Mine"_s;
    QVERIFY(SaveAtExit(state));
    AppState again = store.State();
    LoadPanelState(again);
    QCOMPARE(again.PanelTop, 300);
    QCOMPARE(again.PanelLeft, 450);
    QCOMPARE(again.SelectedCategory, 1);
    QCOMPARE(again.Catalogue[1].TreeName, u"Mine"_s);
}

QTEST_GUILESS_MAIN(tst_startup)
#include "tst_startup.moc"
