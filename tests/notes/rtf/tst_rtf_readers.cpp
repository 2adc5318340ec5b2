#include "notes/rtf/rtf_reader.h"
#include "notes/rtf/rtf_writer.h"
#include "sample_documents.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace paneda;
using namespace paneda::test;

namespace {

constexpr int kPatience = 100000; // ms

QStringList Words(const QString& text) {
    return QString(text)
        .replace(QChar::ObjectReplacementCharacter, u' ')
        .remove(QChar(QChar::SoftHyphen)) // which plain text leaves out
        .replace(QChar(0x2011), u'-')
        .simplified()
        .split(u' ');
}

// A document in lines, without what the office program makes of its own accord: numbers of every kind become
// digits, a cell comes in beside a nested table, and fonts of its own come to a picture, to an empty note and
// to what the font does not have.
QStringList Comparable(const QTextDocument& document, const QString& sample) {
    if (QStringList{QStringLiteral("characters"), QStringLiteral("empty"), QStringLiteral("nested")}.contains(
            sample))
        return document.toPlainText().split(u'\n', Qt::SkipEmptyParts);
    QStringList lines = Describe(document);
    static const QRegularExpression number(QStringLiteral("list-[4-8] <.*> item \\d+"));
    static const QRegularExpression picture(QStringLiteral("<\uFFFC> .* picture 20x(10|9\\.99\\d*) "));
    lines.replaceInStrings(number, QStringLiteral("numbered"));
    return lines.replaceInStrings(picture, QStringLiteral("picture "));
}

} // namespace

// Independent programs read what we write.
class TestRtfReaders : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void office_data() { Samples(); }
    void office();
    void wordProcessor_data() { Samples(); }
    void wordProcessor();
    void plainConverter();

private:
    static void Samples();
    static void MakeSample(const QString& name, QTextDocument& document);
    QByteArray Output(const QString& program, const QStringList& arguments);
    QString Path(const QString& name, const QString& ending) const { return folder_.filePath(name + ending); }

    QTemporaryDir folder_;
    QStringList files_;
};

void TestRtfReaders::Samples() {
    QTest::addColumn<QString>("name");
    for (const SampleDocument& sample : SampleDocuments())
        QTest::newRow(qPrintable(sample.Name)) << sample.Name;
}

void TestRtfReaders::MakeSample(const QString& name, QTextDocument& document) {
    for (const SampleDocument& sample : SampleDocuments()) {
        if (sample.Name == name)
            MakeDocument(document, sample.Fill);
    }
}

QByteArray TestRtfReaders::Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(kPatience) || process.exitStatus() != QProcess::NormalExit)
        qWarning("%s did not end well: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

void TestRtfReaders::initTestCase() {
    QVERIFY(folder_.isValid());
    for (const SampleDocument& sample : SampleDocuments()) {
        QTextDocument document;
        MakeSample(sample.Name, document);
        QFile file(Path(sample.Name, QStringLiteral(".rtf")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(WriteRtf(document));
        files_.append(file.fileName());
    }
    // One start for all of them, as it takes its time.
    const QString program = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    if (!program.isEmpty())
        Output(program, QStringList{QStringLiteral("-env:UserInstallation=file://") +
                                        folder_.filePath(QStringLiteral("profile")),
                                    QStringLiteral("--headless"), QStringLiteral("--writer"),
                                    QStringLiteral("--convert-to"), QStringLiteral("rtf"),
                                    QStringLiteral("--outdir"), folder_.filePath(QStringLiteral("office"))} +
                            files_);
}

// What the office program has understood, as it writes it itself.
void TestRtfReaders::office() {
    if (QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty())
        QSKIP("There is no soffice here.");
    QFETCH(QString, name);
    QFile file(Path(QStringLiteral("office/") + name, QStringLiteral(".rtf")));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    QTextDocument office;
    ReadRtf(file.readAll(), office);
    QTextDocument document;
    MakeSample(name, document);
    QCOMPARE(Comparable(office, name), Comparable(document, name));
}

void TestRtfReaders::wordProcessor() {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("abiword"));
    if (program.isEmpty())
        QSKIP("There is no abiword here.");
    QFETCH(QString, name);
    Output(program, {QStringLiteral("--to=txt"), Path(name, QStringLiteral(".rtf"))});
    QFile file(Path(name, QStringLiteral(".txt")));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    QTextDocument document;
    MakeSample(name, document);
    QCOMPARE(Words(QString::fromUtf8(file.readAll())), Words(document.toPlainText()));
}

void TestRtfReaders::plainConverter() {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("unrtf"));
    if (program.isEmpty())
        QSKIP("There is no unrtf here.");
    const auto html = [&](const char* name) {
        return QString::fromUtf8(Output(
            program, {QStringLiteral("--html"), Path(QString::fromLatin1(name), QStringLiteral(".rtf"))}));
    };
    const QString looks = html("looks");
    for (const char* part :
         {"<font face=\"Verdana\"><font size=\"2\">bold</font></font></b>", "<i>italic</i>",
          "<u>underlined</u>", "<s>struck</s>", "<sup>raised</sup>", "<sub>lowered</sub>",
          "<font color=\"#ff0000\">red</font>", "<font face=\"Courier New\">other</font>",
          "<span style=\"background:#ffff00\">marked</span>"})
        QVERIFY2(looks.contains(QLatin1StringView(part)), qPrintable(QLatin1StringView(part) + u' ' + looks));
    const QString characters = html("characters");
    for (const char* part : {"braces {} and \\, caf&eacute; &euro;, &#1103;, &#20013;"})
        QVERIFY2(characters.contains(QLatin1StringView(part)), qPrintable(characters));
    QVERIFY(html("tables").contains(QLatin1StringView("<td>c3</td>")));
}

QTEST_MAIN(TestRtfReaders)
#include "tst_rtf_readers.moc"
