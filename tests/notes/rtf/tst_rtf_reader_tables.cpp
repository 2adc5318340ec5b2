#include "notes/rtf/properties.h"
#include "read_note.h"

#include <QTest>
#include <QTextTable>

using namespace paneda;
using namespace paneda::test;

class TestRtfReaderTables : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void grids_data();
    void grids();
    void surroundings();
    void cellFormats();
    void listsAndTables();
    void hugeTables_data();
    void hugeTables();
};

namespace {

QByteArray Note(const QByteArray& body) {
    return "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}" + body + '}';
}

QString CellText(const QTextTableCell& cell) {
    QStringList texts;
    for (auto it = cell.begin(); !it.atEnd(); ++it)
        if (it.currentBlock().isValid())
            texts.append(it.currentBlock().text());
    return texts.join(u'/');
}

// Rows with "|" between cells and ";" behind rows; a cell that spans tells columns x rows behind its text,
// and stands once.
QString Shape(const QTextTable& table) {
    QString shape;
    for (int row = 0; row < table.rows(); ++row) {
        QStringList cells;
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            if (cell.row() != row || cell.column() != column)
                continue;
            const bool spans = cell.rowSpan() > 1 || cell.columnSpan() > 1;
            cells.append(
                CellText(cell) +
                (spans ? QStringLiteral("%1x%2").arg(cell.columnSpan()).arg(cell.rowSpan()) : QString()));
        }
        shape += cells.join(u'|') + u';';
    }
    return shape;
}

QTextTable* FirstTable(const ReadNote& note) {
    for (QTextFrame* frame : note.Document.rootFrame()->childFrames())
        if (auto* table = qobject_cast<QTextTable*>(frame))
            return table;
    return nullptr;
}

} // namespace

void TestRtfReaderTables::grids_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("shape");
    const auto row = [](const char* name, const QByteArray& body, const QString& shape) {
        QTest::newRow(name) << body << shape;
    };
    const QByteArray two = "\\trowd\\cellx1000\\cellx2000\\pard\\intbl ";
    row("plain", two + "a\\cell b\\par c\\cell\\row" + two + "\\cell d\\cell\\row",
        QStringLiteral("a|b/c;|d;"));
    row("definition behind the cells",
        "\\pard\\intbl a\\cell b\\cell\\pard\\intbl{\\trowd\\cellx1000\\cellx2000\\row}",
        QStringLiteral("a|b;"));
    row("one definition for two rows", two + "a\\cell b\\cell\\row c\\cell d\\cell\\row",
        QStringLiteral("a|b;c|d;"));
    row("edges of their own",
        two + "a\\cell b\\cell\\row\\trowd\\cellx1500\\cellx2000\\pard\\intbl c\\cell d\\cell\\row",
        QStringLiteral("a|b2x1;c2x1|d;"));
    row("edges a hair apart",
        two + "a\\cell b\\cell\\row\\trowd\\cellx1006\\cellx2000\\pard\\intbl c\\cell d\\cell\\row",
        QStringLiteral("a|b;c|d;"));
    row("short row", two + "a\\cell b\\cell\\row\\trowd\\cellx1000\\pard\\intbl c\\cell\\row",
        QStringLiteral("a|b;c2x1;"));
    row("merged to the right",
        two +
            "a\\cell b\\cell\\row\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\pard\\intbl c\\cell\\cell\\row",
        QStringLiteral("a|b;c2x1;"));
    row("merged downwards",
        "\\trowd\\clvmgf\\cellx1000\\cellx2000\\pard\\intbl a\\cell "
        "b\\cell\\row\\trowd\\clvmrg\\cellx1000\\cellx2000"
        "\\pard\\intbl\\cell c\\cell\\row\\trowd\\clvmrg\\cellx1000\\cellx2000\\pard\\intbl x\\cell "
        "d\\cell\\row",
        QStringLiteral("a/x1x3|b;c;d;"));
    row("edges that do not grow",
        "\\trowd\\cellx1000\\cellx500\\cellx-3\\pard\\intbl a\\cell b\\cell c\\cell\\row",
        QStringLiteral("a|b|c;"));
    row("no definition", "\\intbl a\\cell b\\cell\\row", QStringLiteral("a|b;"));
    row("no end of the row", two + "a\\cell b\\cell\\pard end", QStringLiteral("a|b;"));
    row("no end of the note", two + "a\\cell b", QStringLiteral("a|b;"));
}

void TestRtfReaderTables::grids() {
    QFETCH(QByteArray, body);
    const ReadNote note(Note(body));
    const QTextTable* table = FirstTable(note);
    QVERIFY(table);
    QTEST(Shape(*table), "shape");
}

// Blocks that only Qt needs are marked, and no others.
void TestRtfReaderTables::surroundings() {
    const QByteArray row = "\\trowd\\cellx1000\\pard\\intbl a\\cell\\row\\pard ";
    const auto marks = [](const QByteArray& body) {
        const ReadNote note(Note(body));
        QString text;
        for (QTextBlock block = note.Document.begin(); block.isValid(); block = block.next())
            text += block.blockFormat().boolProperty(RtfFiller) ? QStringLiteral("#") : block.text() + u',';
        return text;
    };
    QCOMPARE(marks(row), QStringLiteral("#a,#"));
    QCOMPARE(marks("x\\par" + row + "y\\par"), QStringLiteral("x,a,y,"));
    QCOMPARE(marks(row + "\\par"), QStringLiteral("#a,,"));
    QCOMPARE(marks("\\par" + row + "\\par" + row + "z"), QStringLiteral(",a,,a,z,"));
    QCOMPARE(
        marks(
            "\\trowd\\cellx900\\pard\\intbl\\itap2 n\\nestcell{\\*\\nesttableprops\\trowd\\cellx500\\nestrow}"
            "\\pard\\intbl\\itap1 c\\cell\\row"),
        QStringLiteral("##n,c,#"));
}

void TestRtfReaderTables::cellFormats() {
    const ReadNote note(
        Note("\\trowd\\irow0\\trgaph108\\trleft-108\\trhdr\\clvertalc\\clbrdrt\\brdrs\\brdrw30\\brdrcf1"
             "\\clcbpat1\\clvmgf\\cellx1392\\cellx2892\\pard\\intbl a\\cell b\\cell\\row"));
    const QTextTable* table = FirstTable(note);
    QVERIFY(table);
    QCOMPARE(table->format().headerRowCount(), 1);
    QCOMPARE(table->format().columnWidthConstraints().at(0).rawValue(), 100.0);
    const QTextTableCellFormat a = table->cellAt(0, 0).format().toTableCellFormat();
    QCOMPARE(a.verticalAlignment(), QTextCharFormat::AlignMiddle);
    QCOMPARE(a.background().color(), QColor(Qt::red));
    QCOMPARE(a.topBorder(), 2.0);
    QCOMPARE(a.topBorderBrush().color(), QColor(Qt::red));
    QCOMPARE(a.leftBorder(), 0.0);
    QCOMPARE(a.intProperty(RtfCellRight), 1392);
    QCOMPARE(a.intProperty(RtfRowLeft), -108);
    QCOMPARE(a.property(RtfRowWords).toByteArray(), QByteArray("\\trgaph108\\trleft-108\\trhdr"));
    QCOMPARE(a.property(RtfCellWords).toByteArray(),
             QByteArray("\\clvertalc\\clbrdrt\\brdrs\\brdrw30\\brdrcf1\\clcbpat1"));
    QVERIFY(!table->cellAt(0, 1).format().hasProperty(RtfCellWords));
}

// The block behind a table must not take over the list item that stood in front of it.
void TestRtfReaderTables::listsAndTables() {
    const ReadNote note(Note("\\pard{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}i\\par\\trowd\\cellx1000\\pard\\intbl "
                             "{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}a\\cell\\row\\pard b\\par"));
    QVERIFY(note.Block(QStringLiteral("i")).textList());
    QVERIFY(note.Block(QStringLiteral("a")).textList());
    QVERIFY(!note.Block(QStringLiteral("b")).textList());
}

void TestRtfReaderTables::hugeTables_data() {
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("loss");
    QTest::newRow("wide row") << Note(QByteArray("\\intbl a\\cell").repeated(2000) + "\\row")
                              << QStringLiteral("the cells of a very wide table");
    QByteArray stairs;
    for (int i = 1; i <= 2000; ++i)
        stairs += "\\trowd\\cellx" + QByteArray::number(i * 40) + "\\pard\\intbl a\\cell\\row";
    QTest::newRow("no two edges alike") << Note(stairs) << QStringLiteral("the grid of a very large table");
    QByteArray deep;
    for (int i = 1; i < 60; ++i)
        deep += "\\pard\\itap" + QByteArray::number(i) + " a\\par";
    QTest::newRow("deep") << Note(deep) << QStringLiteral("the look of a note with");
    const QByteArray shared = "\\trowd" + QByteArray("\\cellx9").repeated(400) + "\\pard\\intbl ";
    QTest::newRow("many rows of one wide definition")
        << Note(shared + QByteArray("a\\cell\\row ").repeated(10000)) << QString();
}

void TestRtfReaderTables::hugeTables() {
    QFETCH(QByteArray, rtf);
    QFETCH(QString, loss);
    const ReadNote note(rtf);
    QVERIFY(note.Reading.Losses.join(u',').startsWith(loss) &&
            note.Reading.Losses.isEmpty() == loss.isEmpty());
    QVERIFY(note.Document.toPlainText().count(u'a') >= 59);
}

QTEST_MAIN(TestRtfReaderTables)
#include "tst_rtf_reader_tables.moc"
