#include "archive/zip_class.h"
#include "archive/zip_extraction.h"
#include "archive/zip_tools.h"
#include "support/store_builder.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>

#include <functional>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QDateTime kTime({2026, 11, 21}, {6, 30});

// What a reader told and gave, in order: "status: ...", "error N", "progress N", "name=bytes".
struct Reading {
    QStringList Log;
    bool Result = false;

    QStringList Of(const QString& kind) const { return Log.filter(kind); }
    QStringList Output() const { return Log.filter(u"="_s); }
};

Reading Read(const QString& path, int cancelAt = 1000) {
    Reading reading;
    QStringList& log = reading.Log;
    ZipEvents events;
    events.Status = [&log](const QString& text) { log.append(u"status: "_s + text); };
    events.Error = [&log](const QString&, int number) { log.append(u"error %1"_s.arg(number)); };
    events.Progress = [&log, cancelAt](bool& cancel, int percent) {
        log.append(u"progress %1"_s.arg(percent));
        cancel = percent >= cancelAt;
    };
    ZipExtractionClass zip(events, [&log](const QString& name, const QByteArray& bytes) {
        log.append(name + u'=' + QString::fromLatin1(bytes.left(20)));
    });
    if (zip.OpenZip(path))
        reading.Result = zip.Extract({}, false, false);
    return reading;
}

QString ErrorLine(ZipError error) {
    return u"error %1"_s.arg(int(error));
}

// Two entries: a.rtf at 0 with 35 + 9 bytes, b.rtf behind it.
QByteArray TwoEntries() {
    ZipClass zip;
    (void)zip.AddBytes(u"a.rtf"_s, "aaaaaaaaaa", kTime);
    (void)zip.AddBytes(u"b.rtf"_s, "bcdefghijk", kTime);
    return zip.Bytes().value();
}

template <class Number>
void Put(QByteArray& bytes, qsizetype offset, Number value) {
    qToLittleEndian(value, bytes.data() + offset);
}

} // namespace

class tst_zip_read : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void events();
    void wanted();
    void notArchives();
    void otherWriters_data();
    void otherWriters();
    void hostile_data();
    void hostile();
    void toFolders();
};

void tst_zip_read::events() {
    StoreBuilder store;
    store.AddFile(u"two.zip"_s, TwoEntries());
    const Reading whole = Read(store.Path(u"two.zip"_s));
    QVERIFY(whole.Result);
    const QStringList expected{
        u"status: Opening Zip"_s,           u"status: Zip Opened"_s, u"status: Extracting Files"_s,
        u"status: Extracting ...\\a.rtf"_s, u"a.rtf=aaaaaaaaaa"_s,   u"progress 50"_s,
        u"status: Extracting ...\\b.rtf"_s, u"b.rtf=bcdefghijk"_s,   u"progress 100"_s,
        u"status: Extraction Complete"_s,   u"status: Zip Closed"_s};
    QCOMPARE(whole.Log, expected);
    const Reading cancelled = Read(store.Path(u"two.zip"_s), 50);
    QVERIFY(!cancelled.Result);
    QCOMPARE(cancelled.Log.mid(5), QStringList({u"progress 50"_s, u"status: Zip Closed"_s}));
}

// Of what is not wanted nothing is looked at: the first entry's method is not known.
void tst_zip_read::wanted() {
    QByteArray bytes = TwoEntries();
    Put<quint16>(bytes, bytes.indexOf("PK\x01\x02") + 10, 99);
    QStringList log;
    ZipEvents events;
    events.Error = [&log](const QString& message, int) { log.append(message); };
    ZipExtractionClass zip(
        events, [&log](const QString&, const QByteArray& entry) { log.append(QString::fromLatin1(entry)); },
        [](const QString& name) { return name == u"b.rtf"; });
    QVERIFY(zip.OpenZip(bytes, u"in memory"_s));
    QVERIFY(zip.Extract({}, false, false));
    QCOMPARE(log, QStringList{u"bcdefghijk"_s});
}

void tst_zip_read::notArchives() {
    StoreBuilder store;
    const QByteArray two = TwoEntries();
    const QByteArray end = two.right(22);
    const auto isZip = [&store](const QByteArray& bytes) {
        store.AddFile(u"x.zip"_s, bytes);
        return Read(store.Path(u"x.zip"_s)).Log.contains(u"status: Zip Opened"_s);
    };
    QVERIFY(!isZip(end.left(21)));
    QVERIFY(isZip(end));
    // Behind so much text that the scan takes several steps, and across a border of them.
    for (int shift = 0; shift < 4; ++shift)
        QVERIFY(isZip(QByteArray(100'000, 'y') + end + QByteArray(65531 + shift, 'x')));
    // The last one counts.
    QByteArray empty = end;
    Put<quint16>(empty, 10, 0);
    store.AddFile(u"x.zip"_s, two + empty);
    QCOMPARE(Read(store.Path(u"x.zip"_s)).Output(), QStringList());
    store.AddFile(u"x.zip"_s, two + empty.left(10));
    QCOMPARE(Read(store.Path(u"x.zip"_s)).Output().size(), 2);
}

void tst_zip_read::otherWriters_data() {
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("output");
    QTest::addColumn<QStringList>("errors");
    const QStringList note{u"content.rtf=text text text text "_s};
    const auto python = [](const QString& line) {
        return QStringList{u"-c"_s,
                           u"import zipfile as f\nz = f.ZipFile('x.zip', 'w', f.ZIP_DEFLATED)\n"_s + line};
    };
    const auto add = [](const char* tag, const QString& program, const QStringList& arguments,
                        const QStringList& output, const QStringList& errors = {}) {
        QTest::newRow(tag) << program << arguments << output << errors;
    };
    add("zip", u"zip"_s, {u"x.zip"_s, u"content.rtf"_s}, note);
    add("zip, stored", u"zip"_s, {u"-0"_s, u"x.zip"_s, u"content.rtf"_s}, {});
    add("7z", u"7z"_s, {u"a"_s, u"x.zip"_s, u"content.rtf"_s}, note);
    add("7z, another method", u"7z"_s, {u"a"_s, u"-mm=BZip2"_s, u"x.zip"_s, u"content.rtf"_s}, {},
        {ErrorLine(ZipError::UnsupportedMethod)});
    add("python, sizes behind the data", u"python3"_s,
        python(u"with z.open('content.rtf', 'w') as e: e.write(open('content.rtf', 'rb').read())"_s), note);
}

void tst_zip_read::otherWriters() {
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    if (!HasProgram(program))
        QSKIP("the program is not installed");
    StoreBuilder store;
    const QByteArray text = QByteArray("text ").repeated(40);
    store.AddFile(u"content.rtf"_s, text);
    QCOMPARE(RunTool(program, arguments, store.AppFolder()), QString());
    const Reading reading = Read(store.Path(u"x.zip"_s));
    QTEST(reading.Output(), "output");
    QTEST(reading.Of(u"error"_s), "errors");
    // The reader of skins takes stored entries as well.
    ZipReader reader;
    QVERIFY(reader.Open(std::make_unique<QFile>(store.Path(u"x.zip"_s))));
    QCOMPARE(reader.Rewind(), 1);
    const auto bytes = reader.Read(*reader.Next());
    QCOMPARE(bytes.value_or(QByteArray()), reading.Of(u"error"_s).isEmpty() ? text : QByteArray());
}

void tst_zip_read::hostile_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("output");
    QTest::addColumn<QStringList>("errors");
    const QByteArray good = TwoEntries();
    const qsizetype first = good.indexOf("PK\x01\x02"); // its central header
    const qsizetype second = first + kZipCentralSize + 5;
    const qsizetype end = good.size() - kZipEndSize;
    const QString a = u"a.rtf=aaaaaaaaaa"_s;
    const QString b = u"b.rtf=bcdefghijk"_s;
    const auto add = [&good](const char* tag, const std::function<void(QByteArray&)>& change,
                             const QStringList& output, const QList<ZipError>& errors) {
        QByteArray bytes = good;
        change(bytes);
        QStringList lines;
        for (const ZipError error : errors)
            lines.append(ErrorLine(error));
        QTest::newRow(tag) << bytes << output << lines;
    };
    const auto change16 = [&add](const char* tag, qsizetype at, int value, const QStringList& output,
                                 const QList<ZipError>& errors) {
        add(
            tag, [at, value](QByteArray& bytes) { Put<quint16>(bytes, at, quint16(value)); }, output, errors);
    };
    const auto change32 = [&add](const char* tag, qsizetype at, qint64 value, const QStringList& output,
                                 const QList<ZipError>& errors) {
        add(
            tag, [at, value](QByteArray& bytes) { Put<quint32>(bytes, at, quint32(value)); }, output, errors);
    };
    // Only the last part of a name counts.
    const auto rename = [&add, first, &b](const char* tag, const char* name, const QString& last) {
        add(
            tag, [first, name](QByteArray& bytes) { bytes.replace(first + kZipCentralSize, 5, name, 5); },
            last.isEmpty() ? QStringList{b} : QStringList{last + u"=aaaaaaaaaa"_s, b},
            last.isEmpty() ? QList{ZipError::UnsafeName} : QList<ZipError>());
    };
    change32("local header beyond the file", first + 42, 0xFFFFFFF0, {b}, {ZipError::Damaged});
    change32("data into the directory", second + 20, first, {a}, {ZipError::Damaged});
    change32("data over the next entry", first + 20, first - 40, {a}, {ZipError::Damaged});
    change32("size that so few bytes cannot hold", first + 24, 0x07FFFFFF, {b}, {ZipError::Checksum});
    change32("checksum", first + 16, 1, {b}, {ZipError::Checksum});
    change16("method", first + 10, 99, {b}, {ZipError::UnsupportedMethod});
    change16("central name beyond the file", second + 28, 0xFFFF, {a}, {ZipError::UnsafeName});
    change16("more entries than there are", end + 10, 0xFFFF, {a, b}, {ZipError::Damaged});
    change16("spanned", end + 4, 1, {}, {});
    change32("directory beyond the file", end + 16, 0xFFFFFFFF, {}, {ZipError::Damaged});
    rename("upwards", "../x!", u"x!"_s);
    rename("this folder", "./a.r", u"a.r"_s);
    rename("a drive's folder", "C:/x!", u"x!"_s);
    rename("a drive", "C:x!!", {});
    rename("ends upwards", "ab/..", {});
    rename("ends in a separator", "abcd/", {});
    // Two entries that could hold 65 MiB each: within the bound alone, and beyond it together.
    QByteArray large(140'000, ' ');
    QRandomGenerator(1).generate(large.begin(), large.end());
    ZipClass two;
    for (const QString& name : {u"a.rtf"_s, u"b.rtf"_s})
        QVERIFY(two.AddBytes(name, large, kTime));
    QByteArray bytes = two.Bytes().value();
    const qsizetype behind = bytes.lastIndexOf("PK\x01\x02");
    for (const qsizetype header : {behind - kZipCentralSize - 5, behind})
        Put<quint32>(bytes, header + 24, 65 * 1024 * 1024);
    QTest::newRow("all over the limit")
        << bytes << QStringList(u"a.rtf="_s + QString::fromLatin1(large.first(20)))
        << QStringList(ErrorLine(ZipError::TooBig));
    // The sizes that the local header gives are not looked at.
    change32("local sizes", 18, 0xFFFFFFFF, {a, b}, {});
}

void tst_zip_read::hostile() {
    QFETCH(QByteArray, bytes);
    StoreBuilder store;
    store.AddFile(u"x.zip"_s, bytes);
    const Reading reading = Read(store.Path(u"x.zip"_s));
    QTEST(reading.Output(), "output");
    const QStringList errors = reading.Of(u"error"_s);
    QTEST(QStringList(errors.mid(0, 2)), "errors");
}

void tst_zip_read::toFolders() {
    ZipClass zip;
    QVERIFY(zip.AddBytes(u"one/two/a.rtf"_s, "new", kTime));
    QVERIFY(zip.AddBytes(u"b.rtf"_s, "new", kTime));
    StoreBuilder store;
    QVERIFY(zip.WriteZip(store.Path(u"x.zip"_s), false));
    QStringList errors;
    ZipEvents events;
    events.Error = [&errors](const QString& message, int) { errors.append(message); };
    ZipExtractionClass reader(events);
    QVERIFY(reader.OpenZip(store.Path(u"x.zip"_s)));

    store.AddFile(u"flat/b.rtf"_s, "old");
    QVERIFY(reader.Extract(store.Path(u"flat"_s), false, false));
    QCOMPARE(store.Bytes(u"flat/a.rtf"_s), QByteArray("new"));
    QCOMPARE(store.Bytes(u"flat/b.rtf"_s), QByteArray("old"));
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().endsWith(u"b.rtf already exists"_s));
    QVERIFY(reader.Extract(store.Path(u"deep"_s), true, true));
    QCOMPARE(store.Bytes(u"deep/one/two/a.rtf"_s), QByteArray("new"));
    // With folders the whole name counts.
    ZipClass upwards;
    QVERIFY(upwards.AddBytes(u"../out.rtf"_s, "new", kTime));
    QVERIFY(upwards.WriteZip(store.Path(u"y.zip"_s), false));
    QVERIFY(reader.OpenZip(store.Path(u"y.zip"_s)));
    QVERIFY(reader.Extract(store.Path(u"deep"_s), true, true));
    QVERIFY(!store.Entries().contains(u"out.rtf"_s));
}

QTEST_GUILESS_MAIN(tst_zip_read)
#include "tst_zip_read.moc"
