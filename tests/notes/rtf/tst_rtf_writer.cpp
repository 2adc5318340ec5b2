#include "notes/rtf/properties.h"
#include "notes/rtf/write/writer.h"
#include "sample_documents.h"

#include <QTest>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>

#include <algorithm>

using namespace paneda;
using namespace paneda::test;

using Change = std::function<void(QTextCharFormat&)>;
using BlockChange = std::function<void(QTextBlockFormat&)>;
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(BlockChange)

namespace {

QByteArray Written(const QTextDocument& document) {
    const QByteArray rtf = WriteRtf(document);
    if (std::any_of(rtf.begin(), rtf.end(), [](char c) { return c < 0; }))
        QTest::qFail("more than 7 bits", __FILE__, __LINE__);
    return rtf;
}

// What stands between the head and the last brace, without the words that every note begins with.
QByteArray BodyOf(const QByteArray& rtf) {
    QByteArray body = rtf.mid(rtf.indexOf("\\uc1\r\n") + 6);
    body.truncate(body.lastIndexOf('}'));
    const QByteArray start = "\\pard\\f0\\fs20 ";
    return body.startsWith(start) ? body.mid(start.size()) : body;
}

void SetRoot(QTextDocument& document, const QMap<int, QVariant>& properties) {
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    for (auto it = properties.begin(); it != properties.end(); ++it)
        format.setProperty(it.key(), it.value());
    document.rootFrame()->setFrameFormat(format);
}

} // namespace

class TestRtfWriter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void looks_data();
    void looks();
    void paragraphs_data();
    void paragraphs();
    void keptLists();
    void keptTables();
    void links();
    void pictures();
    void tables();
    void wholeNote();
};

void TestRtfWriter::text_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("rtf");

    QTest::newRow("escapes") << QStringLiteral("a{b}\\c") << QByteArray("a\\{b\\}\\\\c");
    QTest::newRow("delimiters") << QStringLiteral("\t7\u2028-\t x") << QByteArray("\\tab 7\\line -\\tab  x");
    QTest::newRow("signs") << QStringLiteral("a\u00a0b\u00adc\u2011d") << QByteArray("a\\~b\\-c\\_d");
    QTest::newRow("fallback") << QStringLiteral("\u00e9\u20ac\u044f")
                              << QByteArray("\\u233\\'e9\\u8364\\'80\\u1103\\'3f");
    QTest::newRow("pair") << QStringLiteral("\U0001F600") << QByteArray("\\u-10179\\'3f\\u-8704\\'3f");
    QTest::newRow("halves") << QString(QChar(0xdc00)) + QChar(0xd800) << QByteArray("\\u-3\\'3f\\u-3\\'3f");
    QTest::newRow("symbol") << QString(QChar(0xf0b7)) << QByteArray("\\u-3913\\'b7");
    QTest::newRow("controls") << QStringLiteral("a\u0001b") << QByteArray("a\\u1\\'3fb");
}

void TestRtfWriter::text() {
    QFETCH(QString, text);
    QFETCH(QByteArray, rtf);
    QTextDocument document;
    MakeDocument(document, [&text](QTextCursor& cursor) { cursor.insertText(QStringLiteral("x") + text); });
    QCOMPARE(BodyOf(Written(document)), "x" + rtf + "\\par\r\n");
}

void TestRtfWriter::looks_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<QByteArray>("rtf");

    const auto row = [](const char* rtf, const Change& change) {
        QTest::newRow(rtf) << change << QByteArray(rtf);
    };
    row("x\\b y\\b0 z", [](QTextCharFormat& f) { f.setFontWeight(QFont::Bold); });
    row("x\\ul y\\ulnone z", [](QTextCharFormat& f) { f.setFontUnderline(true); });
    row("x\\ulwave y\\ulnone z",
        [](QTextCharFormat& f) { f.setUnderlineStyle(QTextCharFormat::WaveUnderline); });
    row("x\\uldb y\\ulnone z", [](QTextCharFormat& f) {
        f.setFontUnderline(true);
        f.setProperty(RtfUnderlineWord, QStringLiteral("uldb"));
    });
    row("xyz", [](QTextCharFormat& f) { f.setProperty(RtfUnderlineWord, QStringLiteral("uldb")); });
    row("x\\dn6 y\\up0 z", [](QTextCharFormat& f) { SetBaselineShift(f, -55, 10); });
    row("x\\up11 y\\up0 z", [](QTextCharFormat& f) { SetBaselineShift(f, 55 + 55, 10); });
    row("x\\up5 y\\up0 z", [](QTextCharFormat& f) { f.setBaselineOffset(25); });
    row("x\\f1\\fs25 y\\f0\\fs20 z", [](QTextCharFormat& f) {
        f.setFontFamilies({QStringLiteral("Arial")});
        f.setFontPointSize(12.5);
    });
    row("x\\cf1 y\\cf0 z", [](QTextCharFormat& f) { f.setForeground(QColor(255, 0, 0)); });
    row("x\\cb1 y\\cb0 z", [](QTextCharFormat& f) {
        f.setBackground(QColor(255, 255, 0));
        f.setProperty(RtfBackgroundWord, int(RtfBackground::Cb));
    });
    row("x\\expndtw-30 y\\expndtw0 z", [](QTextCharFormat& f) {
        f.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        f.setFontLetterSpacing(-2);
    });
    // What cannot be told back is left by a new start.
    row("x\\b\\outl y\\plain\\f0\\fs20 z", [](QTextCharFormat& f) {
        f.setFontWeight(QFont::Bold);
        f.setProperty(RtfCharWords, QStringLiteral("\\outl"));
    });
    // A text without language takes that of the text before it.
    row("x\\lang1031 yz", [](QTextCharFormat& f) { f.setProperty(RtfLanguage, 1031); });
}

void TestRtfWriter::looks() {
    QFETCH(Change, change);
    QFETCH(QByteArray, rtf);
    QTextDocument document;
    MakeDocument(document, [&change](QTextCursor& cursor) {
        QTextCharFormat format;
        cursor.insertText(QStringLiteral("x"), format);
        change(format);
        cursor.insertText(QStringLiteral("y"), format);
        cursor.insertText(QStringLiteral("z"), QTextCharFormat());
    });
    QCOMPARE(BodyOf(Written(document)), rtf + "\\par\r\n");
}

void TestRtfWriter::paragraphs_data() {
    QTest::addColumn<BlockChange>("change");
    QTest::addColumn<QByteArray>("words");

    const auto row = [](const char* words, const BlockChange& change) {
        QTest::newRow(words) << change << QByteArray(words);
    };
    row("\\fi-300\\li450\\ri15", [](QTextBlockFormat& f) {
        f.setLeftMargin(30);
        f.setRightMargin(1);
        f.setTextIndent(-20);
    });
    row("\\li601", [](QTextBlockFormat& f) {
        f.setIndent(1);
        f.setLeftMargin(1 / 15.0);
    });
    row("\\sl360\\slmult1",
        [](QTextBlockFormat& f) { f.setLineHeight(150, QTextBlockFormat::ProportionalHeight); });
    row("\\qr\\tx150\\tqdec\\tx300", [](QTextBlockFormat& f) {
        f.setAlignment(Qt::AlignRight);
        f.setTabPositions(
            {QTextOption::Tab(10, QTextOption::LeftTab), QTextOption::Tab(20, QTextOption::DelimiterTab)});
    });
    // The side where lines begin is the right one.
    row("\\rtlpar\\qr", [](QTextBlockFormat& f) { f.setLayoutDirection(Qt::RightToLeft); });
    row("\\rtlpar", [](QTextBlockFormat& f) {
        f.setLayoutDirection(Qt::RightToLeft);
        f.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    });
    row("\\pagebb\\keep\\cbpat1\\s3\\keepn", [](QTextBlockFormat& f) {
        f.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        f.setNonBreakableLines(true);
        f.setBackground(QColor(1, 2, 3));
        f.setProperty(RtfParagraphWords, QStringLiteral("\\s3\\keepn"));
    });
}

// The words come once for paragraphs of one look, and go with \pard.
void TestRtfWriter::paragraphs() {
    QFETCH(BlockChange, change);
    QFETCH(QByteArray, words);
    QTextDocument document;
    MakeDocument(document, [&change](QTextCursor& cursor) {
        QTextBlockFormat format;
        change(format);
        cursor.insertText(QStringLiteral("a"));
        cursor.insertBlock(format);
        cursor.insertText(QStringLiteral("b"));
        cursor.insertBlock(format);
        cursor.insertText(QStringLiteral("c"));
        cursor.insertBlock(QTextBlockFormat());
    });
    QCOMPARE(BodyOf(Written(document)), "a\\par\r\n\\pard" + words + " b\\par\r\nc\\par\r\n\\pard\\par\r\n");
}

// A form that was read goes back as it was; numbers go on behind another paragraph; a style that the user
// has changed since counts more than the form.
void TestRtfWriter::keptLists() {
    QTextDocument document;
    QTextList* list = nullptr;
    MakeDocument(document, [&list](QTextCursor& cursor) {
        QTextListFormat format;
        format.setStyle(QTextListFormat::ListDecimal);
        format.setIndent(0);
        format.setProperty(RtfListReadStyle, int(QTextListFormat::ListDecimal));
        format.setProperty(RtfListPn, QByteArray("\\pnlvlbody\\pnstart4\\pndec\\pnb"));
        format.setProperty(RtfListStart, 4);
        format.setProperty(RtfListNumber, 2);
        cursor.insertText(QStringLiteral("a"));
        list = cursor.createList(format);
        cursor.insertBlock();
        cursor.insertText(QStringLiteral("b"));
        cursor.insertBlock();
        list->remove(cursor.block());
        cursor.insertBlock();
        list->add(cursor.block());
    });
    const QByteArray body = BodyOf(Written(document));
    QVERIFY2(
        body.startsWith("\\pard{\\pntext 4.\\tab}{\\*\\pn\\pnlvlbody\\pnstart4\\pndec\\pnb}\\ls2\\ilvl0"),
        body.constData());
    QVERIFY2(body.contains("{\\pntext 6.\\tab}{\\*\\pn\\pnlvlbody\\pnstart6\\pndec\\pnb}"), body.constData());
    QTextListFormat changed = list->format();
    changed.setStyle(QTextListFormat::ListUpperAlpha);
    list->setFormat(changed);
    const QByteArray after = BodyOf(Written(document));
    QVERIFY2(after.startsWith("\\pard{\\pntext D.\\tab}{\\*\\pn\\pnlvlbody\\pnindent0\\pnstart4\\pnucltr"),
             after.constData());
    QVERIFY(!after.contains("\\ls2"));
}

// Fonts and colours of a note that was read keep their numbers, new ones come behind.
void TestRtfWriter::keptTables() {
    QTextDocument document;
    MakeDocument(document, [](QTextCursor& cursor) {
        QTextCharFormat format;
        format.setFontFamilies({QStringLiteral("Tahoma")});
        format.setProperty(RtfFontNumber, 9);
        format.setForeground(QColor(0, 0, 255));
        cursor.insertText(QStringLiteral("a"), format);
        format.setFontFamilies({QStringLiteral("tahoma")});
        format.clearProperty(RtfFontNumber);
        format.setForeground(QColor(0, 0, 0));
        cursor.insertText(QStringLiteral("b"), format);
        format.setFontFamilies({QStringLiteral("New;")});
        format.setProperty(RtfFontNumber, 9);
        format.setForeground(QColor(1, 2, 3));
        cursor.insertText(QStringLiteral("c"), format);
    });
    SetRoot(document,
            {{RtfFontTable, QByteArray("{\\fonttbl{\\f4 Tahoma;}{\\f9\\fcharset204 Tahoma;}}")},
             {RtfColourTable, QByteArray("{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255}")},
             {RtfDefaultFont, 4},
             {RtfCodePage, 1251},
             {RtfHead, QByteArray("{\\stylesheet{\\s3 x;}}\\viewkind1\\deftab720")}});
    const QByteArray rtf = Written(document);
    QCOMPARE(
        rtf,
        QByteArray("{\\rtf1\\ansi\\ansicpg1251\\deff4"
                   "{\\fonttbl{\\f4 Tahoma;}{\\f9\\fcharset204 Tahoma;}{\\f10\\fnil\\fcharset0 New;}}\r\n"
                   "{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255;\\red0\\green0\\blue0;"
                   "\\red1\\green2\\blue3;}\r\n"
                   "{\\*\\generator Paneda Launcher;}{\\stylesheet{\\s3 x;}}\\viewkind1\\deftab720\\uc1\r\n"
                   "\\pard\\cf1\\f9\\fs20 a\\cf2\\f4 b\\cf3\\f10 c\\par\r\n}\r\n"));
}

void TestRtfWriter::links() {
    QTextDocument document;
    MakeDocument(document, [](QTextCursor& cursor) {
        QTextCharFormat link;
        link.setAnchorHref(QStringLiteral("file:///c:\\a \"b"));
        cursor.insertText(QStringLiteral("a"), link);
        link.setFontItalic(true);
        cursor.insertText(QStringLiteral("b"), link);
        link.setAnchorHref(QStringLiteral("#mark"));
        cursor.insertText(QStringLiteral("c"), link);
        link.setAnchorHref(QStringLiteral("http://x"));
        link.setProperty(RtfLinkInstruction, QStringLiteral("HYPERLINK \"http://x\" \\o \"tip\""));
        cursor.insertText(QStringLiteral("d"), link);
        link.setAnchorHref(QStringLiteral("http://y"));
        cursor.insertText(QStringLiteral("e"), link);
        cursor.insertText(QStringLiteral("f"), QTextCharFormat());
    });
    const QByteArray rtf = Written(document);
    for (const QByteArray& part :
         QList<QByteArray>{"{\\field{\\*\\fldinst{HYPERLINK \"file:///c:\\\\\\\\a %22b\"}}{\\fldrslt",
                           "a\\i b}}", "{HYPERLINK \\\\l \"mark\"}}{\\fldrslt\\i\\f0\\fs20 c}}",
                           "{HYPERLINK \"http://x\" \\\\o \"tip\"}}", "{HYPERLINK \"http://y\"}}"})
        QVERIFY2(rtf.contains(part), QByteArray(part + " is not in " + rtf).constData());
    QVERIFY2(rtf.endsWith("e}}\\f0\\fs20 f\\par\r\n}\r\n"), rtf.constData());
}

void TestRtfWriter::pictures() {
    QTextDocument document;
    MakeDocument(document, [](QTextCursor& cursor) {
        QTextImageFormat format;
        format.setProperty(RtfPictureBytes, QByteArray("\x01\xff", 2));
        format.setProperty(RtfPictureKind, QByteArray("wmetafile8"));
        format.setProperty(RtfPictureWords,
                           QByteArray("{\\*\\picprop}\\picwgoal300\\pichgoal150\\picscalex50\\piccropl30"));
        format.setProperty(RtfPictureFallback, QByteArray("{\\nonshppict{\\pict 00}}"));
        format.setProperty(RtfPictureShown, QSizeF(9, 10));
        format.setWidth(9);
        format.setHeight(10);
        cursor.insertImage(format);
        format.setWidth(18);
        format.setProperty(RtfPictureFallback, QVariant());
        cursor.insertImage(format);
    });
    const QByteArray body = BodyOf(Written(document));
    QVERIFY2(
        body.contains("{\\*\\shppict{\\pict{\\*\\picprop}\\picwgoal300\\pichgoal150\\picscalex50\\piccropl30"
                      "\\wmetafile8\r\n01ff}}{\\nonshppict{\\pict 00}}"),
        body.constData());
    // Twice as wide: what was scaled to a half is now shown in full.
    QVERIFY2(
        body.contains("{\\pict{\\*\\picprop}\\picwgoal300\\pichgoal150\\piccropl30\\wmetafile8\r\n01ff}"),
        body.constData());
}

void TestRtfWriter::tables() {
    QTextDocument document;
    MakeDocument(document, SampleDocuments().at(8).Fill);
    QByteArray body = BodyOf(Written(document));
    for (const char* side : {"t", "l", "b", "r"})
        body.replace(QByteArray("\\clbrdr").append(side).append("\\brdrs\\brdrw15\\brdrcf1"), "");
    QCOMPARE(body,
             QByteArray(
                 "\\pard\\f0\\fs20\\par\r\n"
                 "\\trowd\\trgaph70\\trleft0\\cellx3000\\cellx4500\\pard\\intbl wide\\cell c1\\cell\\row\r\n"
                 "\\trowd\\trgaph70\\trleft0\\cellx1500\\cellx3000\\clvmgf\\cellx4500"
                 "\\pard\\intbl a2\\cell\\cell high\\cell\\row\r\n"
                 "\\trowd\\trgaph70\\trleft0\\cellx1500\\cellx3000\\clvmrg\\cellx4500"
                 "\\pard\\intbl\\cell b3\\cell\\pard\\intbl\\cell\\row\r\n"
                 "\\pard after\\par\r\n"));

    // A cell that goes on from above must not hide that the next one has the look of the one before.
    QTextDocument aligned;
    MakeDocument(aligned, [](QTextCursor& cursor) {
        QTextTable* table = cursor.insertTable(2, 3);
        table->mergeCells(0, 1, 2, 1);
        QTextBlockFormat right;
        right.setAlignment(Qt::AlignRight);
        for (const int column : {0, 2})
            table->cellAt(1, column).firstCursorPosition().setBlockFormat(right);
    });
    body = BodyOf(Written(aligned));
    QVERIFY2(body.contains("\\pard\\intbl\\qr\\cell\\pard\\intbl\\cell\\pard\\intbl\\qr\\cell\\row"),
             body.constData());
}

// A block that only a table needs is left out while it is empty, but for the one that ends the note.
void TestRtfWriter::wholeNote() {
    QTextDocument document;
    MakeDocument(document, [](QTextCursor& cursor) {
        QTextBlockFormat filler;
        filler.setProperty(RtfFiller, true);
        cursor.setBlockFormat(filler);
        cursor.insertTable(1, 1);
        cursor.movePosition(QTextCursor::End);
        cursor.setBlockFormat(filler);
    });
    const QByteArray body = BodyOf(Written(document));
    QVERIFY2(body.startsWith("\\trowd") && body.endsWith("\\row\r\n\\pard\\par\r\n"), body.constData());
    QTextCursor(document.firstBlock()).insertText(QStringLiteral("typed"));
    QVERIFY(BodyOf(Written(document)).startsWith("typed\\par"));
    QVERIFY(WriteRtf(document, RtfExtent::Passage).endsWith("\\row\r\n\\pard}\r\n"));
}

QTEST_MAIN(TestRtfWriter)
#include "tst_rtf_writer.moc"
