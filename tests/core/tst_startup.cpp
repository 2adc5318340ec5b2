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
    void cache();
    void failuresAreToldAndPassedOver();
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
    QVERIFY(HasDriveButtons(state.Catalogue));
    QCOMPARE(state.Catalogue.at(1).TreeName, u"Tree"_s);
    QCOMPARE(state.Countdown.Sound, u"Orin Tamber"_s);
}

// A change made by hand is seen only when the store is scanned.
void tst_startup::cache() {
    const test::StoreBuilder store;
    AppState state = store.State();
    LoadPanelState(state);
    const PictureRecord pictures{u"Walnut"_s, 5, {}, {7, 8}};
    WriteCache(state, pictures);
    store.AddFolder(u"Setting/[003] Late"_s);
    AppState again = store.State();
    const PanelLoad load = LoadPanelState(again);
    QVERIFY(load.CacheValid && load.Cache.HasDriveButtons && load.Cache.Pictures == pictures);
    QVERIFY(again.Catalogue == state.Catalogue);
    again.IgnoreCache = true;
    QVERIFY(!LoadPanelState(again).CacheValid);
    QCOMPARE(again.Catalogue.size(), 3U);
}

void tst_startup::failuresAreToldAndPassedOver() {
    const test::StoreBuilder store;
    store.AddFile(u"Setting"_s);
    store.AddFolder(u"config"_s);
    store.AddFolder(u"setting.ini"_s);
    AppState state = store.State();
    const PanelLoad load = LoadPanelState(state);
    QCOMPARE(load.Failures.size(), 3U);
    QVERIFY(state.Catalogue.empty());
    QCOMPARE(state.ButtonsPerRow, 5.0);
    WriteCache(state, {}); // no folder to write it to
    QVERIFY(!SaveAtExit(state));
}

QTEST_GUILESS_MAIN(tst_startup)
#include "tst_startup.moc"
