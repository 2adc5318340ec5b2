#include "archive/zip_class.h"
#include "archive/zip_extraction.h"
#include "archive/zip_tools.h"
#include "support/store_builder.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

class tst_zip_write : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void layout();
    void dosTimes();
    void otherReaders_data();
    void otherReaders();
};

// "abc" deflates to five bytes of which the first says: last block, fixed codes.
void tst_zip_write::layout() {
    const QByteArray crc = QByteArray::fromHex("C2412435"); // of "abc", as every CRC table tells
    const QByteArray deflated = QByteArray::fromHex("4B4C4A0600");
    const QByteArray sizes = crc + QByteArray::fromHex("0500000003000000");
    // 2026-11-21 06:30:43, the odd second cut.
    const QByteArray time = QByteArray::fromHex("D533755D");
    const QByteArray common = QByteArray::fromHex("140002000800") + time + sizes;
    const QByteArray expected = "PK\x03\x04" + common + QByteArray::fromHex("0B000300") + "content.rtf" +
                                "ext" + deflated + "PK\x01\x02" + QByteArray::fromHex("1400") + common +
                                QByteArray::fromHex("0B0003000000") + QByteArray::fromHex("00002000") +
                                QByteArray::fromHex("00000000") + QByteArray::fromHex("00000000") +
                                "content.rtf" + "ext" + "PK\x05\x06" +
                                QByteArray::fromHex("00000000010001003C0000003100000002003F21");

    StoreBuilder store;
    store.AddFile(u"content.rtf"_s, "abc");
    QFile file(store.Path(u"content.rtf"_s));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime({QDate(2026, 11, 21), QTime(6, 30, 43)}, QFileDevice::FileModificationTime));
    file.close();

    ZipClass zip;
    zip.SetComment(u"?!"_s);
    QVERIFY(zip.AddFile(store.Path(u"content.rtf"_s), {}, "ext"));
    QVERIFY(zip.WriteZip(store.Path(u"content.zip"_s), false));
    QCOMPARE(store.Bytes(u"content.zip"_s).toHex(' '), expected.toHex(' '));
}

void tst_zip_write::dosTimes() {
    const auto packed = [](const QDateTime& time) {
        const ZipDosTime dos = PackDosTime(time);
        return quint32(dos.Date) << 16 | dos.Time;
    };
    const quint32 first = (1 << 5 | 1) << 16;
    const quint32 last = quint32(127 << 9 | 12 << 5 | 31) << 16 | 23 << 11 | 59 << 5 | 29;
    QCOMPARE(packed({QDate(1979, 12, 31), QTime(23, 59, 59)}), first);
    QCOMPARE(packed({}), first);
    QCOMPARE(packed({QDate(2107, 12, 31), QTime(23, 59, 59)}), last);
    QCOMPARE(packed({QDate(2108, 1, 1), QTime(0, 0)}), last);
}

void tst_zip_write::otherReaders_data() {
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("unzip") << u"unzip"_s << QStringList{u"-t"_s, u"out.zip"_s};
    QTest::newRow("7z") << u"7z"_s << QStringList{u"t"_s, u"out.zip"_s};
    // Contents as well, and the attributes that are this program's own.
    const QString script =
        u"import zipfile\n"
        u"z = zipfile.ZipFile('out.zip')\n"
        u"assert z.testzip() is None\n"
        u"assert z.namelist() == ['big', 'empty', 'noise']\n"
        u"assert z.read('big') == open('big', 'rb').read()\n"
        u"assert z.read('noise') == open('noise', 'rb').read()\n"
        u"assert z.comment == b'note'\n"
        u"assert all(i.internal_attr == 32 and i.flag_bits == 2 for i in z.infolist())\n"_s;
    QTest::newRow("python") << u"python3"_s << QStringList{u"-c"_s, script};
}

void tst_zip_write::otherReaders() {
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    if (!HasProgram(program))
        QSKIP("the program is not installed");
    StoreBuilder store;
    store.AddFile(u"big"_s, QByteArray("{\\rtf1 text} ").repeated(100'000));
    store.AddFile(u"empty"_s);
    store.AddFile(u"noise"_s, QCryptographicHash::hash("noise", QCryptographicHash::Sha512));
    ZipClass zip;
    zip.SetComment(u"note"_s);
    for (const QString& name : {u"big"_s, u"empty"_s, u"noise"_s})
        QVERIFY(zip.AddFile(store.Path(name)));
    QVERIFY(zip.WriteZip(store.Path(u"out.zip"_s), false));
    QCOMPARE(RunTool(program, arguments, store.AppFolder()), QString());
}

QTEST_GUILESS_MAIN(tst_zip_write)
#include "tst_zip_write.moc"
