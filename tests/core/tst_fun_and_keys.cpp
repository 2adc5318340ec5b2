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
    void keyTexts_data();
    void keyTexts();
    void funFiles_data();
    void funFiles();
    void stepping();
};

void tst_fun_and_keys::keyRows() {
    QSet<QString> texts;
    QSet<int> keys;
    for (const KeyRow& row : KeyTable()) {
        texts.insert(row.Text);
        keys.insert(row.Key);
    }
    // A blank, 26 letters, 11 function keys, 19 named ones, 10 digits, Num Lock, 15 of the pad.
    QCOMPARE(int(KeyTable().size()), 83);
    QCOMPARE(texts.size(), 83);
    QCOMPARE(keys.size(), 83);
    QCOMPARE(KeyTable().front().Text, u" "_s);
    QVERIFY(!keys.contains(123));
}

void tst_fun_and_keys::keyTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("key");

    const std::pair<const char*, int> kRows[] = {
        {" ", 0},           {"A", 65},          {"Z", 90},         {"F1", 112},       {"F9", 120},
        {"F10", 121},       {"F11", 122},       {"Prt Scr", 44},   {"Pause", 19},     {"Space Bar", 32},
        {"Arrow Left", 37}, {"Arrow Down", 40}, {"0", 48},         {"9", 57},         {"Num Lock", 144},
        {"Numpad 0", 96},   {"Numpad 9", 105},  {"Numpad *", 106}, {"Numpad -", 109}, {"Numpad /", 111},
    };
    for (const auto& [text, key] : kRows)
        QTest::newRow(text) << QString::fromLatin1(text) << key;
}

void tst_fun_and_keys::keyTexts() {
    QFETCH(QString, text);
    QFETCH(int, key);
    QCOMPARE(KeyOfText(text), key);
    QCOMPARE(TextOfKey(key), text);
    QCOMPARE(KeyOfText(text.toLower() + u'?'), 0);
    QCOMPARE(TextOfKey(key + 1000), QString());
}

void tst_fun_and_keys::funFiles_data() {
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("sorted, MP3 alone")
        << QStringList{u"b.MP3"_s, u"01.mp3"_s, u"a.Mp3"_s, u"c.ogg"_s, u"10.mp3"_s}
        << QStringList{u"01.mp3"_s, u"10.mp3"_s, u"a.Mp3"_s, u"b.MP3"_s};
    QTest::newRow("first one in capitals") << QStringList{u"01.MP3"_s} << QStringList{u"01.MP3"_s};
    QTest::newRow("no first one") << QStringList{u"02.mp3"_s, u"1.mp3"_s} << QStringList();
    QTest::newRow("nothing") << QStringList() << QStringList();
}

void tst_fun_and_keys::funFiles() {
    QFETCH(QStringList, present);
    QFETCH(QStringList, expected);
    const StoreBuilder store;
    for (const QString& name : present)
        store.AddFile(u"Sound/Fun/"_s + name);
    store.AddFolder(u"Sound/Fun/00.mp3"_s);
    const QDateTime now = QDateTime::fromSecsSinceEpoch(1000);
    FunList list = LoadFunList(store.Path(u"Sound/Fun"_s), now);
    QCOMPARE(list.FunFiles, expected);
    QCOMPARE(NextFunFile(list, now), expected.value(0));
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
