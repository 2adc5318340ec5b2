#include "notes/rtf/properties.h"
#include "read_note.h"

#include <QFile>
#include <QTest>
#include <QTextList>
#include <QTextTable>

using namespace paneda;
using namespace paneda::test;

// Notes as other programs write them.
class TestRtfPrograms : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wordProcessors_data();
    void wordProcessors();
    void officeLists();
    void richTextControl();
    void fullWordProcessor();
};

namespace {

QByteArray Sample(const QString& name) {
    QFile file(QStringLiteral(PANEDA_RTF_NOTES "/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QTextTable* FirstTable(const ReadNote& note) {
    for (QTextFrame* frame : note.Document.rootFrame()->childFrames())
        if (auto* table = qobject_cast<QTextTable*>(frame))
            return table;
    return nullptr;
}

QString CellText(const QTextTable& table, int row, int column) {
    return table.cellAt(row, column).firstCursorPosition().block().text();
}

void CheckCharacters(const ReadNote& note) {
    QCOMPARE(note.Look(QStringLiteral("Plan")).fontPointSize(), 18.0);
    QCOMPARE(note.Look(QStringLiteral("Plan")).fontWeight(), int(QFont::Bold));
    QCOMPARE(note.Look(QStringLiteral("Plan")).fontFamilies().toStringList().value(0),
             QStringLiteral("DejaVu Sans"));
    QCOMPARE(note.Look(QStringLiteral("Plain")).fontFamilies().toStringList().value(0),
             QStringLiteral("DejaVu Serif"));
    QCOMPARE(note.Look(QStringLiteral("Plain")).fontPointSize(), 12.0);
    QVERIFY(note.Look(QStringLiteral("italic")).fontItalic());
    QVERIFY(note.Look(QStringLiteral("under")).fontUnderline());
    QVERIFY(note.Look(QStringLiteral("gone")).fontStrikeOut());
    QCOMPARE(note.Look(QStringLiteral("red")).foreground().color(), QColor(Qt::red));
    QCOMPARE(note.Look(QStringLiteral("marked")).background().color(), QColor(Qt::yellow));
    QCOMPARE(note.Look(QStringLiteral("a link")).anchorHref(),
             QStringLiteral("https://example.org/a?b=1&c=2"));
    const QTextCharFormat raised = note.Look(QStringLiteral("2"));
    QVERIFY(raised.verticalAlignment() == QTextCharFormat::AlignSuperScript ||
            raised.intProperty(RtfBaselineShift) > 0);
}

} // namespace

// The same text, made by two programs from one document.
void TestRtfPrograms::wordProcessors_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("office") << QStringLiteral("office.rtf");
    QTest::newRow("abiword") << QStringLiteral("abiword.rtf");
}

void TestRtfPrograms::wordProcessors() {
    QFETCH(QString, file);
    const ReadNote note(Sample(file));
    QCOMPARE(note.Reading.Losses, QStringList());
    QCOMPARE(note.Block(QStringLiteral("Plan")).blockFormat().alignment(), Qt::Alignment(Qt::AlignHCenter));
    QCOMPARE(note.Block(QStringLiteral("end")).blockFormat().alignment(), Qt::Alignment(Qt::AlignRight));
    QVERIFY(qAbs(note.Block(QStringLiteral("end")).blockFormat().leftMargin() - 75.6) < 0.1);
    QVERIFY(note.Block(QStringLiteral("Plain"))
                .text()
                .contains(QStringLiteral("gr\u00F6\u00DFer \u0436\u65E5 x")));
    CheckCharacters(note);
    for (const QString& item : {QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("inner")})
        QVERIFY2(note.Block(item).isValid(), qPrintable(item));
    const QTextTable* table = FirstTable(note);
    QVERIFY(table && table->rows() == 3 && table->columns() == 3);
    QCOMPARE(CellText(*table, 0, 2), QStringLiteral("c1"));
    QCOMPARE(CellText(*table, 1, 0), QStringLiteral("wide"));
    QCOMPARE(table->cellAt(1, 0).columnSpan(), 2);
    QCOMPARE(CellText(*table, 2, 1), QStringLiteral("b3"));
    QVERIFY(table->cellAt(0, 0).format().toTableCellFormat().leftBorder() > 0);
}

void TestRtfPrograms::officeLists() {
    const ReadNote note(Sample(QStringLiteral("office.rtf")));
    const QTextList* outer = note.Block(QStringLiteral("first")).textList();
    QVERIFY(outer && outer == note.Block(QStringLiteral("second")).textList());
    QCOMPARE(outer->format().style(), QTextListFormat::ListDecimal);
    QCOMPARE(outer->format().numberSuffix(), QStringLiteral("."));
    QCOMPARE(qRound(note.Block(QStringLiteral("first")).blockFormat().leftMargin() * 15), 709);
    const QTextList* inner = note.Block(QStringLiteral("inner")).textList();
    QVERIFY(inner && inner != outer);
    QCOMPARE(inner->format().style(), QTextListFormat::ListDisc);
    const QTextImageFormat image = note.Look(QStringLiteral("\uFFFC")).toImageFormat();
    QCOMPARE(QSizeF(image.width(), image.height()), QSizeF(20, 10));
    const QImage picture = QImage::fromData(image.property(RtfPictureBytes).toByteArray(), "PNG");
    QCOMPARE(picture.size(), QSize(4, 2));
    QVERIFY(image.property(RtfPictureFallback).toByteArray().startsWith("{\\nonshppict{\\pict"));
}

void TestRtfPrograms::richTextControl() {
    const ReadNote note(Sample(QStringLiteral("control.rtf")));
    QCOMPARE(note.Reading.Losses, QStringList());
    QCOMPARE(note.Text(),
             QStringLiteral("Shopping list|bread|milk||third|fourth|yellow\u041F\u0440\u0438under|"
                            "http://example.org/|\uFFFC|one|two|last"));
    QCOMPARE(note.Look(QStringLiteral("Shopping")).fontPointSize(), 10.0);
    QCOMPARE(note.Look(QStringLiteral("milk")).foreground().color(), QColor(Qt::red));
    QCOMPARE(note.Look(QStringLiteral("last")).fontFamilies().toStringList(),
             QStringList(QStringLiteral("MS Sans Serif")));
    QCOMPARE(note.Block(QStringLiteral("fourth")).textList()->format().intProperty(RtfListStart), 3);
    const QTextBlockFormat link = note.Block(QStringLiteral("http")).blockFormat();
    QCOMPARE(link.leftMargin() + link.rightMargin(), 30.0);
    QCOMPARE(link.tabPositions().size(), 2);
    QVERIFY(FirstTable(note));
}

void TestRtfPrograms::fullWordProcessor() {
    const ReadNote note(Sample(QStringLiteral("word.rtf")));
    QCOMPARE(note.Reading.Losses, QStringList());
    QCOMPARE(note.Block(QStringLiteral("title")).text(), QStringLiteral("\uFFFCtitle\uFFFC\uFFFC after"));
    QCOMPARE(note.Block(QStringLiteral("three")).textList(), note.Block(QStringLiteral("one")).textList());
    QVERIFY(note.Block(QStringLiteral("again")).textList() != note.Block(QStringLiteral("sub")).textList());
    QCOMPARE(note.Block(QStringLiteral("Page")).text(),
             QStringLiteral("Page \uFFFC ofabwide\uFFFC\u2014\u00A0x\u00ADy\u2011z\uFFFC\u2028next\u20AC"));
    const QTextTable* table = FirstTable(note);
    QVERIFY(table && table->rows() == 2 && table->columns() == 2);
    QCOMPARE(table->cellAt(0, 1).rowSpan(), 2);
    QCOMPARE(table->childFrames().size(), 1);
    QCOMPARE(note.Document.lastBlock().blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_AlwaysBefore);
    const QByteArray head = note.Root().property(RtfHead).toByteArray();
    QVERIFY(head.contains("{\\header\\pard\\plain\\ql Head\\par}") &&
            head.contains("{\\*\\bkmkstart") == false);
}

QTEST_MAIN(TestRtfPrograms)
#include "tst_rtf_programs.moc"
