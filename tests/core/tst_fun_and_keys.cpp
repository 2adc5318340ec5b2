#include "core/panel/fun_list.h"
#include "core/settings/key_table.h"
#include "support/store_builder.h"

#include <QSet>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

class tst_fun_and_keys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keyRows();
    void funFiles();
    void stepping();
};

void tst_fun_and_keys::keyRows() {
    QSet<int> keys;
    for (const KeyRow& row : KeyTable()) {
        QCOMPARE(KeyOfText(row.Text), row.Key);
        QCOMPARE(TextOfKey(row.Key), row.Text);
        keys.insert(row.Key);
    }
    QCOMPARE(keys.size(), KeyTable().size());
    QCOMPARE(KeyOfText(u"Numpad 9"_s), 105);
    QCOMPARE(KeyOfText(u"a"_s), 0);
    QCOMPARE(TextOfKey(1000), QString());
}

void tst_fun_and_keys::funFiles() {
    const StoreBuilder store;
    const QDateTime now = QDateTime::fromSecsSinceEpoch(1000);
    const auto load = [&] { return LoadFunList(store.Path(u"Sound/Fun"_s), now); };
    for (const QString& name : {u"b.MP3"_s, u"02.mp3"_s, u"a.Mp3"_s, u"c.ogg"_s})
        store.AddFile(u"Sound/Fun/"_s + name);
    store.AddFolder(u"Sound/Fun/00.mp3"_s);
    FunList list = load();
    QCOMPARE(NextFunFile(list, now), QString()); // no first one
    store.AddFile(u"Sound/Fun/01.MP3"_s);
    list = load();
    QCOMPARE(list.FunFiles, (QStringList{u"01.MP3"_s, u"02.mp3"_s, u"a.Mp3"_s, u"b.MP3"_s}));
    QCOMPARE(NextFunFile(list, now), u"01.MP3"_s);
}

void tst_fun_and_keys::stepping() {
    const auto at = [](double seconds) { return QDateTime::fromMSecsSinceEpoch(qint64(seconds * 1000)); };
    FunList list{{u"1"_s, u"2"_s, u"3"_s}, 0, at(0)};
    QCOMPARE(NextFunFile(list, at(1)), u"1"_s);
    QCOMPARE(NextFunFile(list, at(6)), u"2"_s);
    QCOMPARE(NextFunFile(list, at(7)), u"3"_s);
    QCOMPARE(NextFunFile(list, at(8)), u"1"_s);
    // The sound plays up to 20 and the five seconds count from there.
    QVERIFY(FollowFunSound(list, true, at(20)));
    QVERIFY(!FollowFunSound(list, false, at(21)));
    QCOMPARE(NextFunFile(list, at(25)), u"2"_s);
    QCOMPARE(NextFunFile(list, at(30.001)), u"1"_s);
    // A clock that has been put back starts nothing again.
    QCOMPARE(NextFunFile(list, at(0)), u"2"_s);
}

QTEST_GUILESS_MAIN(tst_fun_and_keys)
#include "tst_fun_and_keys.moc"
