#include "core/settings/config_settings.h"
#include "support/store_builder.h"

#include <QTest>
#include <QtEndian>

#include <functional>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

const QString kFile = u"config"_s;

// Payload of a record by the layout of the file, without the program's own reader.
QByteArray Payload(const QByteArray& file, int record) {
    const QByteArray bytes = file.mid((record - 1) * 4000, 4000);
    return bytes.mid(8, qFromLittleEndian<quint32>(bytes.constData()));
}

using Damage = std::function<void(QByteArray&)>;

} // namespace
Q_DECLARE_METATYPE(Damage)

class tst_config : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstRun();
    void damage_data();
    void damage();
};

void tst_config::firstRun() {
    const test::StoreBuilder store;
    AppState state = store.State();
    QVERIFY(LoadConfig(state).empty());
    const QByteArray file = store.Bytes(kFile);
    QCOMPARE(file.size(), 18 * 4000);
    QByteArray drives = "1b00";
    for (int i = 0; i < 27; ++i)
        drives += i == 3 ? "020100" : "020000";
    QByteArrayList payloads =
        QByteArray(
            drives +
            " 0200030000000000000000030000000000000000 0100020000 0100030000000000001440 skin 01000100 "
            "01000100 0100020200 01000100 01000100 01000100 01000100 01000100 0100020000 user 01000101 "
            "0100030000000000805140 id")
            .split(' ');
    const auto text = [](const QByteArray& value) -> QByteArray {
        return "010004" + QByteArray(1, char(value.size())).toHex() + "00" + value.toHex();
    };
    payloads.replace(4, text("Paneda Black Glass"));
    payloads.replace(14, text("Master"));
    payloads.replace(17, text("default"));
    for (int i = 0; i < 18; ++i)
        QCOMPARE(Payload(file, i + 1).toHex(), payloads[i]);
    // FNV-1a of 01 00 02 00 00, worked out outside the program.
    QCOMPARE(qFromLittleEndian<quint32>(file.constData() + 2 * 4000 + 4), 0x4936EEE2U);
    QCOMPARE(state.FeedHeight, 70 * 15);
    QVERIFY(state.DriveTable[3] && !state.DriveTable[2] && !state.DriveTable[4]);
    QVERIFY(LoadConfig(state).empty());
    QCOMPARE(store.Bytes(kFile), file);
}

void tst_config::damage_data() {
    QTest::addColumn<Damage>("damage");
    QTest::addColumn<QList<int>>("lost"); // records that take their default
    const auto add = [](const char* tag, const QList<int>& lost, const Damage& damage) {
        QTest::newRow(tag) << damage << lost;
    };
    const auto set = [](int record, int offset, char byte) {
        return [=](QByteArray& file) { file[(record - 1) * 4000 + offset] = byte; };
    };
    const auto put = [](int record, const QByteArray& bytes) {
        return [=](QByteArray& file) { file.replace((record - 1) * 4000, 4000, bytes); };
    };
    add("none", {}, [](QByteArray&) {});
    add("cut in a record", {15, 16, 17, 18}, [](QByteArray& file) { file.truncate(14 * 4000 + 3999); });
    add("checksum", {6}, set(6, 4, '#'));
    add("shorter", {15}, set(15, 0, 5));
    add("a text for a real", {4}, put(4, *EncodeConfigRecord({u"7.5"_s})));
    add("no element", {5}, put(5, *EncodeConfigRecord({})));
}

void tst_config::damage() {
    QFETCH(Damage, damage);
    QFETCH(QList<int>, lost);
    const test::StoreBuilder store;
    AppState state = store.State();
    LoadConfig(state);
    const QByteArray defaults = store.Bytes(kFile);
    ConfigFile changed(defaults);
    for (int record : {kRecordHideAfterLaunch, kRecordMouseTriggerEnabled})
        changed.Write(record, {true});
    for (int record : {kRecordSkinName, kRecordUserName, kRecordUserId})
        changed.Write(record, {u"mine"_s});
    changed.Write(kRecordButtonsPerRow, {7.5});
    QByteArray bytes = changed.Bytes();
    damage(bytes);
    store.AddFile(kFile, bytes);

    QVERIFY(LoadConfig(state).empty());
    QCOMPARE(state.ButtonsPerRow, lost.contains(4) ? 5 : 7.5);
    QCOMPARE(state.SkinName, lost.contains(5) ? u"Paneda Black Glass"_s : u"mine"_s);
    QCOMPARE(state.HideAfterLaunch, !lost.contains(6));
    QCOMPARE(state.MouseTriggerEnabled, !lost.contains(7));
    QCOMPARE(state.UserName, lost.contains(15) ? u"Master"_s : u"mine"_s);
    const QByteArray repaired = store.Bytes(kFile);
    QCOMPARE(repaired.size(), 18 * 4000);
    for (int i = 1; i <= 18; ++i)
        QCOMPARE(Payload(repaired, i), Payload(lost.contains(i) ? defaults : changed.Bytes(), i));
}

QTEST_GUILESS_MAIN(tst_config)
#include "tst_config.moc"
