#include "notes/rtf/read/reader.h"
#include "notes/rtf/write/writer.h"
#include "sample_documents.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace paneda;
using namespace paneda::test;

// What the writer writes, the reader reads as the same document, and that is written as the same bytes.
class TestRtfRound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
    void randomDocuments();
    void notes_data();
    void notes();
};

namespace {

void ReadInto(QTextDocument& document, const QByteArray& rtf) {
    MakeDocument(document, [](QTextCursor&) {});
    const RtfReading reading = ReadRtf(rtf, document);
    QVERIFY2(reading.IsRtf(), qPrintable(reading.Error));
}

} // namespace

void TestRtfRound::documents_data() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < SampleDocuments().size(); ++i)
        QTest::newRow(qPrintable(SampleDocuments().at(i).Name)) << i;
}

void TestRtfRound::documents() {
    QFETCH(int, index);
    QTextDocument document;
    MakeDocument(document, SampleDocuments().at(index).Fill);
    const QByteArray rtf = WriteRtf(document);
    QTextDocument again;
    ReadInto(again, rtf);
    QCOMPARE(Describe(again), Describe(document));
}

void TestRtfRound::randomDocuments() {
    for (quint32 seed = 0; seed < 40; ++seed) {
        QTextDocument document;
        MakeDocument(document, [seed](QTextCursor& cursor) { FillAtRandom(cursor, seed); });
        QTextDocument again;
        ReadInto(again, WriteRtf(document));
        QVERIFY2(again.toPlainText() == document.toPlainText(),
                 qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

// Notes of other programs: nothing changes once they have been saved.
void TestRtfRound::notes_data() {
    QTest::addColumn<QString>("path");
    QDirIterator files(QStringLiteral(PANEDA_RTF_NOTES), {QStringLiteral("*.rtf")}, QDir::Files);
    while (files.hasNext()) {
        const QString path = files.next();
        QTest::newRow(qPrintable(files.fileName())) << path;
    }
}

void TestRtfRound::notes() {
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QTextDocument first;
    ReadInto(first, file.readAll());
    const QByteArray rtf = WriteRtf(first);
    QTextDocument second;
    ReadInto(second, rtf);
    QCOMPARE(Describe(second), Describe(first));
    QCOMPARE(WriteRtf(second), rtf);
}

QTEST_MAIN(TestRtfRound)
#include "tst_rtf_round.moc"
