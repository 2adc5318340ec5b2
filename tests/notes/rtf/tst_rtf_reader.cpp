#include "notes/rtf/links.h"
#include "notes/rtf/properties.h"
#include "notes/rtf/view/view.h"
#include "notes/rtf/write/writer.h"
#include "read_note.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QStringDecoder>
#include <QTest>
#include <QTextList>
#include <QUrl>

using namespace paneda;
using namespace paneda::test;

class TestRtfReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void refusesOthers();
    void texts_data();
    void texts();
    void systemCodePages();
    void damage_data();
    void damage();
    void characters();
    void kept_data();
    void kept();
    void losses_data();
    void losses();
    void tooHeavy_data();
    void tooHeavy();
    void unknownWords_data();
    void unknownWords();
    void hiddenLooks();
    void paragraphs();
    void lists();
    void nestedListsCountAnew();
    void linkAddresses_data();
    void linkAddresses();
    void pictureSizes_data();
    void pictureSizes();
    void pictures();
    void picturesThatTakeLong();
    void wrappedPictures();
};

namespace {

const QByteArray kHead = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
                         "{\\f1\\fnil\\fcharset204 Kyr;}{\\f2\\fnil\\fcharset128 Nihon;}"
                         "{\\f3\\fnil\\fcharset2 Symbol;}{\\f4\\fnil\\fcharset255 Dos;}"
                         "{\\f5\\fnil\\fcharset130 Johab;}}"
                         "{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green128\\blue0;}";

QByteArray Note(const QByteArray& body) {
    return kHead + body + '}';
}

} // namespace

void TestRtfReader::refusesOthers() {
    QTextDocument document;
    document.setPlainText(QStringLiteral("stays"));
    for (const QByteArray& bytes : {QByteArray(), QByteArray("{\\urtf}"), QByteArray("text"),
                                    QByteArray("PK\x03\x04"), QByteArray("\\rtf1")}) {
        QVERIFY(!ReadRtf(bytes, document).IsRtf());
        QCOMPARE(document.toPlainText(), QStringLiteral("stays"));
    }
    QVERIFY(ReadRtf("\xEF\xBB\xBF\r\n {\\rtf1 new}", document).IsRtf());
    QCOMPARE(document.toPlainText(), QStringLiteral("new"));
    QVERIFY(document.isUndoRedoEnabled());
    QVERIFY(!document.isUndoAvailable());
}

void TestRtfReader::texts_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QByteArray& body, const QString& text) {
        QTest::newRow(name) << body << text;
    };
    row("last paragraph mark", "a\\par b\\par ", QStringLiteral("a|b"));
    row("empty paragraphs", "\\par a\\par\\par\\par", QStringLiteral("|a||"));
    row("nothing", "", QString());
    row("line ends mean nothing", "a\r\nb\\\nc\\line d\\tab e\tf", QStringLiteral("ab|c\u2028d\te\tf"));
    row("signs", "\\{\\}\\\\a\\~b\\-c\\_d\\emdash\\lquote x\\:\\|",
        QStringLiteral("{}\\a\u00A0b\u00ADc\u2011d\u2014\u2018x"));
    row("western", "\\'e4\\'80\xFC", QStringLiteral("\u00E4\u20AC\u00FC"));
    row("cyrillic", "\\f1\\'cf\xF0\\'e8\\f0\\'e8", QStringLiteral("\u041F\u0440\u0438\u00E8"));
    row("two bytes apart", "\\f2\\'93\\'fa\\'96\\'7b\\'41", QStringLiteral("\u65E5\u672CA"));
    row("symbols", "\\f3\\'b7a", QStringLiteral("\uF0B7\uF061"));
    row("dos", "\\f4\\'84", QStringLiteral("\u00E4"));
    row("the note's code page", "\\ansicpg1250\\f9\\'b9", QStringLiteral("\u0105"));
    row("unicode", "\\u1078?a\\u-3913\\'b7b", QStringLiteral("\u0436a\uF0B7b"));
    row("two characters of fallback", "\\uc2\\u26085\\'93\\'fax{\\uc0\\u8364}\\u1078 xyz",
        QStringLiteral("\u65E5x\u20AC\u0436z"));
    row("fallback ends with its group", "{\\uc3\\u1078 x}yz", QStringLiteral("\u0436yz"));
    row("no word is a fallback", "\\u1078\\par b", QStringLiteral("\u0436|b"));
    row("surrogates", "\\u-10179?\\u-8704?\\u128512?", QStringLiteral("\U0001F600\U0001F600"));
    row("unicode alternative", "{\\upr{bad}{\\*\\ud{good}}}", QStringLiteral("good"));
    row("binary as fallback", "\\u1078\\bin1 }b", QStringLiteral("\u0436b"));
    row("marker texts", "{\\pntext\\f3\\'b7\\tab}{\\listtext 1.\\tab}x", QStringLiteral("x"));
    row("marker group closed too late", "{\\listtext\\pard{x}{\\par}}y", QStringLiteral("x|y"));
    row("page break", "\\page a\\par", QStringLiteral("a"));
}

void TestRtfReader::texts() {
    QFETCH(QByteArray, body);
    QFETCH(QString, text);
    const ReadNote note(Note(body));
    // A toolkit built without tables of these languages cannot read them, which must not pass unnoticed.
    if (QByteArray(QTest::currentDataTag()) == "two bytes apart" && !QStringDecoder("Shift_JIS").isValid()) {
        QVERIFY(!note.Reading.Losses.isEmpty());
        return;
    }
    QCOMPARE(note.Text(), text);
    QCOMPARE(note.Reading.Losses, QStringList());
}

// What has no table here is asked of the system, in texts and in names of fonts; what that cannot tell is a
// loss.
void TestRtfReader::systemCodePages() {
    const CodePageDecoder system = [](QByteArrayView bytes, int codePage) -> std::optional<QString> {
        if (codePage != 1361 || bytes.contains('\xFF'))
            return std::nullopt;
        return QStringLiteral("\uD55C");
    };
    const QByteArray font = "{\\fonttbl{\\f5\\fcharset130 \\'d0\\'65;}}";
    QTextDocument document;
    QCOMPARE(ReadRtf("{\\rtf1\\deff5" + font + "\\f5\\'d0\\'65\\par}", document, system).Losses,
             QStringList());
    QCOMPARE(document.firstBlock().text(), QStringLiteral("\uD55C"));
    QVERIFY(WriteRtf(document).contains(QByteArray(font + "\r\n")));
    QCOMPARE(ReadRtf("{\\rtf1" + font + "\\f5\\'ff\\'65\\par}", document, system).Losses,
             QStringList(QStringLiteral("text in code page 1361")));
}

void TestRtfReader::damage_data() {
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");
    QTest::newRow("no end") << kHead + "{\\b a\\par {\\i b" << QStringLiteral("a|b");
    QTest::newRow("cut word") << kHead + "a\\u" << QStringLiteral("a");
    QTest::newRow("cut hex") << kHead + "a\\'e" << QStringLiteral("ae");
    QTest::newRow("no hex") << Note("a\\'zzb") << QStringLiteral("azzb");
    QTest::newRow("cut destination") << kHead + "a{\\*\\bkmkstart b" << QStringLiteral("a\uFFFC");
    QTest::newRow("cut picture") << kHead + "a{\\pict\\pngblip 8950" << QStringLiteral("a\uFFFC");
    QTest::newRow("cut field") << kHead + "a{\\field{\\*\\fldinst PAGE" << QStringLiteral("a\uFFFC");
    QTest::newRow("cut behind a backslash") << kHead + "a{\\*\\bkmkstart b\\\\" << QStringLiteral("a\uFFFC");
    QTest::newRow("too many ends") << Note("a}}b") << QStringLiteral("a");
    QTest::newRow("huge numbers") << Note("\\fs99999999999999999999\\li-99999999999 a\\u99999999999 ?b")
                                  << QStringLiteral("a\uFFFFb");
    QTest::newRow("destination without group")
        << Note("a\\pict 0102\\footnote b\\field") << QStringLiteral("a0102b");
    QTest::newRow("text in front of a field")
        << Note("a{b\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}c") << QStringLiteral("ab\uFFFCc");
    QTest::newRow("text in front of an empty link")
        << Note("a{b\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt }}c") << QStringLiteral("ab\uFFFCc");
    QTest::newRow("binary beyond the end") << kHead + "a\\bin999999 b" << QStringLiteral("a");
    QTest::newRow("ends of rows and cells alone")
        << Note("\\row\\nestrow a\\par\\row b") << QStringLiteral("a|b");
}

void TestRtfReader::damage() {
    QFETCH(QByteArray, rtf);
    const ReadNote note(rtf);
    QVERIFY(note.Reading.IsRtf());
    QTEST(note.Text(), "text");
    // Nothing comes twice, or goes, once it has been saved.
    if (note.Reading.Losses.isEmpty())
        QCOMPARE(ReadNote(WriteRtf(note.Document)).Text(), note.Text());
}

void TestRtfReader::characters() {
    const ReadNote note(
        Note("{\\b a}{\\i b}{\\fs17\\f1 c}{\\cf1\\highlight2 d}{\\ulwave e}{\\ul f}{\\strike g}"
             "{\\super h}{\\sub i}{\\up6 j}{\\dn4 k}{\\caps l}{\\scaps m}{\\expndtw30 n}"
             "{\\lang1031 o}{\\outl\\animtext2\\outl0\\kerning20 p}{\\b q\\b0 r}{\\b s\\plain t}"
             "{\\cf7 u}{\\chcbpat1 v}"));
    QCOMPARE(note.Look(QStringLiteral("a")).fontWeight(), int(QFont::Bold));
    QVERIFY(!note.Look(QStringLiteral("b")).hasProperty(QTextFormat::FontWeight));
    QVERIFY(note.Look(QStringLiteral("b")).fontItalic());
    QCOMPARE(note.Look(QStringLiteral("c")).fontPointSize(), 8.5);
    QCOMPARE(note.Look(QStringLiteral("c")).fontFamilies().toStringList(),
             QStringList(QStringLiteral("Kyr")));
    QCOMPARE(note.Look(QStringLiteral("c")).intProperty(RtfFontNumber), 1);
    QCOMPARE(note.Look(QStringLiteral("d")).foreground().color(), QColor(Qt::red));
    QCOMPARE(note.Look(QStringLiteral("d")).background().color(), QColor(0, 128, 0));
    QCOMPARE(note.Look(QStringLiteral("d")).intProperty(RtfBackgroundWord), int(RtfBackground::Highlight));
    QCOMPARE(note.Look(QStringLiteral("e")).underlineStyle(), QTextCharFormat::WaveUnderline);
    QCOMPARE(note.Look(QStringLiteral("e")).stringProperty(RtfUnderlineWord), QStringLiteral("ulwave"));
    QVERIFY(note.Look(QStringLiteral("f")).fontUnderline() &&
            !note.Look(QStringLiteral("f")).hasProperty(RtfUnderlineWord));
    QVERIFY(note.Look(QStringLiteral("g")).fontStrikeOut());
    QCOMPARE(note.Look(QStringLiteral("h")).verticalAlignment(), QTextCharFormat::AlignSuperScript);
    QCOMPARE(note.Look(QStringLiteral("i")).verticalAlignment(), QTextCharFormat::AlignSubScript);
    QCOMPARE(note.Look(QStringLiteral("j")).intProperty(RtfBaselineShift), 60);
    QCOMPARE(note.Look(QStringLiteral("k")).intProperty(RtfBaselineShift), -40);
    QCOMPARE(note.Look(QStringLiteral("l")).fontCapitalization(), QFont::AllUppercase);
    QCOMPARE(note.Look(QStringLiteral("m")).fontCapitalization(), QFont::SmallCaps);
    QCOMPARE(note.Look(QStringLiteral("n")).fontLetterSpacing(), 2.0);
    QCOMPARE(note.Look(QStringLiteral("o")).intProperty(RtfLanguage), 1031);
    QCOMPARE(note.Look(QStringLiteral("p")).stringProperty(RtfCharWords),
             QStringLiteral("\\animtext2\\kerning20"));
    QVERIFY(!note.Look(QStringLiteral("r")).hasProperty(QTextFormat::FontWeight));
    QVERIFY(!note.Look(QStringLiteral("t")).hasProperty(QTextFormat::FontWeight));
    QCOMPARE(note.Look(QStringLiteral("t")).fontPointSize(), 12.0);
    QVERIFY(!note.Look(QStringLiteral("u")).hasProperty(QTextFormat::ForegroundBrush));
    QCOMPARE(note.Look(QStringLiteral("v")).intProperty(RtfBackgroundWord), int(RtfBackground::Chcbpat));
}

void TestRtfReader::kept_data() {
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QByteArray>("raw");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QByteArray& group, const QByteArray& raw,
                        const QString& shown) { QTest::newRow(name) << group << raw << shown; };
    const QByteArray bookmark = "{\\*\\bkmkstart b}";
    row("bookmark", bookmark, bookmark, QString());
    row("neighbours join", bookmark + "{\\*\\bkmkend b}", bookmark + "{\\*\\bkmkend b}", QString());
    row("data of an unknown kind", "{\\*\\strange{\\i 01ab}}", "{\\*\\strange{\\i 01ab}}", QString());
    row("8 bits and binary", "{\\*\\xe \xE4\\bin2 \xFF}}", "{\\*\\xe \\'e4 ff7d}", QString());
    row("sign of 8 bits", "{\\*\\xe \\\xFF z}", "{\\*\\xe  z}", QString());
    row("other fallbacks", "{\\uc0" + bookmark + "}", "{\\uc0{\\*\\bkmkstart b}}", QString());
    row("hidden", "{\\v s\\'e4{}}", "{\\uc1\\v s\\u1076?}", QString());
    row("footnote", "{\\footnote \\pard n\\par}", "{\\footnote \\pard n\\par}", QStringLiteral("[footnote]"));
    row("field", "{\\field{\\*\\fldinst { PAGE }}{\\fldrslt {\\b 7}}}",
        "{\\field{\\*\\fldinst { PAGE }}{\\fldrslt {\\b 7}}}", QStringLiteral("7"));
    row("words in front of a field", "{\\b\\field{\\*\\fldinst { PAGE }}{\\fldrslt 7}}",
        "{\\field{\\*\\fldinst { PAGE }}{\\fldrslt 7}}", QStringLiteral("7"));
    row("hidden field", "{\\v\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}",
        "{\\v{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}}", QString());
    row("object", "{\\object\\objw300\\objh150{\\*\\objdata 01}}",
        "{\\object\\objw300\\objh150{\\*\\objdata 01}}", QStringLiteral("[object]"));
    row("picture without bytes", "{\\pict\\pngblip\\picw10 }", "{\\pict\\pngblip\\picw10 }",
        QStringLiteral("[picture]"));
    row("link without text", "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt }}",
        "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt }}", QString());
}

void TestRtfReader::kept() {
    QFETCH(QByteArray, group);
    const ReadNote note(Note("\\f1 a" + group + "b\\par"));
    QCOMPARE(note.Text(), QStringLiteral("a\uFFFCb"));
    const QTextCharFormat format = note.Look(QStringLiteral("\uFFFC"));
    QCOMPARE(format.objectType(), kRtfObject);
    QCOMPARE(format.intProperty(RtfFontNumber), 1);
    QTEST(format.property(RtfRaw).toByteArray(), "raw");
    QTEST(format.stringProperty(RtfObjectText), "shown");
    QCOMPARE(note.Reading.Losses, QStringList());
    QCOMPARE(format.fontWeight() == QFont::Bold, group.startsWith("{\\b"));
    if (group.startsWith("{\\object"))
        QCOMPARE(format.property(RtfObjectSize).toSizeF(), QSizeF(20, 10));
}

void TestRtfReader::losses_data() {
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("loss");
    QTest::newRow("tracked") << Note("a{\\deleted b}") << QStringLiteral("tracked changes");
    QTest::newRow("section") << Note("a\\sect b") << QStringLiteral("a section break");
    QTest::newRow("code page") << Note("\\f5\\'88\\'61") << QStringLiteral("text in code page 1361");
    QTest::newRow("wrong bytes") << Note("\\f2\\'93") << QStringLiteral("text in code page 932");
    QTest::newRow("deep") << Note(QByteArray(3000, '{') + "a" + QByteArray(3000, '}'))
                          << QStringLiteral("groups nested very deeply");
    QTest::newRow("behind") << Note("a") + "{\\rtf1 b}" << QStringLiteral("text after the note's end");
    QTest::newRow("second font table")
        << Note("a{\\fonttbl{\\f0 X;}}") << QStringLiteral("a second table of fonts or colours");
    QTest::newRow("hidden mark") << Note("{\\v a\\par}b") << QStringLiteral("hidden ends of paragraphs");
    QTest::newRow("marker of no list")
        << Note("{\\pntext 1.}a\\par") << QStringLiteral("numbers or bullets that belong to no list");
    QTest::newRow("field of several paragraphs")
        << Note("{\\field{\\*\\fldinst TOC}{\\fldrslt a\\par b}}") << QStringLiteral("the field TOC");
    QTest::newRow("nothing behind") << Note("a\\deleted0") + QByteArray("\r\n\0", 3) << QString();
}

void TestRtfReader::losses() {
    QFETCH(QByteArray, rtf);
    QFETCH(QString, loss);
    QCOMPARE(ReadNote(rtf).Reading.Losses, loss.isEmpty() ? QStringList() : QStringList(loss));
}

void TestRtfReader::tooHeavy_data() {
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("reason"); // a part of it; empty for a note that is shown as it is
    const auto row = [](const char* tag, const QByteArray& body, const char* reason) {
        QTest::newRow(tag) << Note(body) << QString::fromLatin1(reason);
    };
    const QByteArray tableRow = "\\trowd\\cellx100\\cellx200\\pard\\intbl a\\cell{\\footnote b}\\cell\\row ";
    row("cells", tableRow.repeated(30000), "table cells");
    row("few cells", tableRow.repeated(1000), "");
    row("one word", QByteArray(300'000, 'a'), "letters without a blank");
    row("words", QByteArray("a word ").repeated(50'000), "");
    row("scripts", "a" + QByteArray("\\u1488?a").repeated(20'000), "letters without a blank");
    row("text", QByteArray("a word ").repeated(1'000'000), "characters");
    row("lines", QByteArray("a\\line ").repeated(500'000), "paragraphs");
    row("pictures", QByteArray("a{\\pict\\pngblip 00}").repeated(40'000), "pictures");
    row("looks that hold much",
        QByteArray("\\brdrw1").repeated(250) + QByteArray("{\\li1 a\\par}{\\li2\\par}").repeated(50'000),
        "kinds of formatting");
    row("looked ahead often", QByteArray("{\\upr").repeated(900) + QByteArray(2'000'000, 'a'), "steps");
    QByteArray fonts;
    QByteArray items;
    for (int i = 0; i < 10'000; ++i) {
        fonts += "\\f" + QByteArray::number(i) + " a ";
        items += "\\pard{\\*\\pn\\pnlvlbody\\pndec}a\\par ";
    }
    row("fonts", fonts, "fonts and sizes");
    row("items", items, "list items");
}

// Of what would keep the window busy the text is shown.
void TestRtfReader::tooHeavy() {
    QFETCH(QByteArray, rtf);
    QFETCH(QString, reason);
    const ReadNote note(rtf);
    QVERIFY2(note.Reading.PlainReason.contains(reason), qPrintable(note.Reading.PlainReason));
    QCOMPARE(note.Reading.PlainReason.isEmpty(), reason.isEmpty());
    QCOMPARE(note.Reading.Losses.isEmpty(), reason.isEmpty());
    QVERIFY(note.Reading.PlainReason.contains(u"steps") || note.Text().contains(u'a'));
}

void TestRtfReader::unknownWords_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("loss"); // a part of it

    const auto row = [](const QByteArray& body, const QString& text, const QString& loss) {
        QTest::newRow(body.constData()) << body << text << loss;
    };
    const QString word = QStringLiteral("unknown kind (\\abizoom)");
    row("a\\abizoom12 b", QStringLiteral("ab"), word);
    row("a{\\abizoom b}c", QStringLiteral("abc"), word);
    row("a{b\\abizoom-3c}d", QStringLiteral("abcd"), word);
    // Words that make something else of a group where they begin one.
    row("a{b\\listtext c}d", QStringLiteral("abcd"), QStringLiteral("(\\listtext)"));
    row("a{b\\info c}d", QStringLiteral("abcd"), QStringLiteral("(\\info)"));
    row("a{\\listtag b}c", QStringLiteral("abc"), QStringLiteral("(\\listtag)"));
    row("a{\\upr{b}}c", QStringLiteral("abc"), QString());
    row("a{\\*\\b b}c", QStringLiteral("abc"), QString());
    row("a{\\*\\strange zz}b", QStringLiteral("a\uFFFCb"),
        QStringLiteral("text in a part of an unknown kind"));
    row("a{\\*\\abimathmldata xyz}b", QStringLiteral("a\uFFFCb"), QStringLiteral("(\\abimathmldata)"));
    row("a\\bin4 }{\\\\b", QStringLiteral("ab"), QStringLiteral("binary data"));
    row("a\\u-560?\\u8233?b\\u-4?c", QStringLiteral("a\u2028b\uFFFDc"), QStringLiteral("control characters"));
    row("a\\protect\\rtlch\\ab b", QStringLiteral("ab"), QString());
}

// A word that is not understood takes no text with it, and stands in the losses.
void TestRtfReader::unknownWords() {
    QFETCH(QByteArray, body);
    QFETCH(QString, loss);
    const ReadNote note(Note(body));
    QTEST(note.Text(), "text");
    const QString losses = note.Reading.Losses.join(u'|');
    QVERIFY2(loss.isEmpty() ? losses.isEmpty() : losses.contains(loss), qPrintable(losses));
    if (body.contains("protect"))
        QCOMPARE(note.Look(QStringLiteral("b")).stringProperty(RtfCharWords),
                 QStringLiteral("\\protect\\ab"));
}

// Hidden text keeps its look: each look is an object of its own.
void TestRtfReader::hiddenLooks() {
    const ReadNote note(Note("a{\\v\\b s{\\cf1 t}{\\footnote x}}b"));
    QList<QTextCharFormat> objects;
    for (auto it = note.Document.firstBlock().begin(); !it.atEnd(); ++it)
        if (it.fragment().charFormat().objectType() == kRtfObject)
            objects.append(it.fragment().charFormat());
    QCOMPARE(objects.size(), 2);
    QCOMPARE(objects.at(0).fontWeight(), int(QFont::Bold));
    QCOMPARE(objects.at(1).foreground().color(), QColor(Qt::red));
    QCOMPARE(objects.at(1).property(RtfRaw).toByteArray(), QByteArray("{\\uc1\\v t}{\\v{\\footnote x}}"));
}

void TestRtfReader::paragraphs() {
    const ReadNote note(
        Note("\\paperw12000{\\stylesheet{\\s1 H;}}{\\*\\generator X;}{\\header h}\\viewkind4\\pard"
             "\\qc\\li301\\ri-30\\fi-299\\sb20\\sa40\\sl-300\\s1\\keepn a\\par"
             "\\pard\\qj\\sl360\\slmult1\\tx720\\tqr\\tldot\\tx1441 b\\par"
             "\\pard\\rtlpar\\ql\\sl240\\cbpat1\\pagebb\\keep c\\par"
             "\\pard\\brdrb\\brdrs\\brdrw15\\brdrcf1 d\\par"
             "{\\pard\\qr e\\par}f\\par\\pard\\fs40\\par"));
    const QTextBlockFormat a = note.Block(QStringLiteral("a")).blockFormat();
    QCOMPARE(a.alignment(), Qt::Alignment(Qt::AlignHCenter));
    QCOMPARE(qRound(a.leftMargin() * 15), 301);
    QCOMPARE(qRound(a.rightMargin() * 15), -30);
    QCOMPARE(qRound(a.textIndent() * 15), -299);
    QCOMPARE(qRound(a.topMargin() * 15) * 100 + qRound(a.bottomMargin() * 15), 2040);
    QCOMPARE(a.lineHeightType(), int(QTextBlockFormat::FixedHeight));
    QCOMPARE(a.lineHeight(), 20.0);
    QCOMPARE(a.stringProperty(RtfParagraphWords), QStringLiteral("\\s1\\keepn"));
    const QTextBlockFormat b = note.Block(QStringLiteral("b")).blockFormat();
    QCOMPARE(b.lineHeightType(), int(QTextBlockFormat::ProportionalHeight));
    QCOMPARE(b.lineHeight(), 150.0);
    QCOMPARE(b.tabPositions().size(), 2);
    QCOMPARE(b.tabPositions().at(1), QTextOption::Tab(1441 / 15.0, QTextOption::RightTab));
    QCOMPARE(b.stringProperty(RtfTabWords), QStringLiteral("\\tx720\\tqr\\tldot\\tx1441"));
    const QTextBlockFormat c = note.Block(QStringLiteral("c")).blockFormat();
    QCOMPARE(c.layoutDirection(), Qt::RightToLeft);
    QCOMPARE(c.lineHeightType(), int(QTextBlockFormat::MinimumHeight));
    QCOMPARE(c.background().color(), QColor(Qt::red));
    QVERIFY(c.nonBreakableLines() && c.pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore);
    QCOMPARE(note.Block(QStringLiteral("d")).blockFormat().stringProperty(RtfParagraphWords),
             QStringLiteral("\\brdrb\\brdrs\\brdrw15\\brdrcf1"));
    QCOMPARE(note.Block(QStringLiteral("e")).blockFormat().alignment(), Qt::Alignment(Qt::AlignRight));
    QCOMPARE(note.Block(QStringLiteral("f")).blockFormat().alignment(), Qt::Alignment(Qt::AlignLeft));
    QCOMPARE(note.Document.lastBlock().charFormat().fontPointSize(), 20.0);
    QCOMPARE(note.Root().property(RtfHead).toByteArray(),
             QByteArray("\\paperw12000{\\stylesheet{\\s1 H;}}{\\header h}\\viewkind4"));
    QVERIFY(note.Root().property(RtfFontTable).toByteArray().startsWith("{\\fonttbl{\\f0"));
}

void TestRtfReader::lists() {
    const QByteArray dots =
        "\\pard{\\pntext\\f3\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf3\\pnindent0{\\pntxtb\\'B7}}"
        "\\fi-360\\li720 ";
    const QByteArray numbers = "\\pard{\\*\\pn\\pnlvlbody\\pnstart3\\pnucrm{\\pntxtb(}{\\pntxta)}}\\li300 ";
    const ReadNote note(Note(dots + "a\\par b\\par" + numbers + "c\\par" + numbers + "d\\par\\pard e\\par" +
                             numbers + "f\\par" + "\\pard{\\*\\pn\\pnlvlblt\\pnf3{\\pntxtb\\'D8}}g\\par"));
    const QTextList* list = note.Block(QStringLiteral("a")).textList();
    QVERIFY(list && list == note.Block(QStringLiteral("b")).textList());
    QCOMPARE(list->format().style(), QTextListFormat::ListDisc);
    QCOMPARE(list->format().indent(), 0);
    QCOMPARE(list->format().property(RtfListPn).toByteArray(),
             QByteArray("\\pnlvlblt\\pnf3\\pnindent0{\\pntxtb\\'B7}"));
    QCOMPARE(note.Block(QStringLiteral("b")).blockFormat().leftMargin(), 48.0);
    QCOMPARE(note.Block(QStringLiteral("b")).blockFormat().textIndent(), 0.0);
    QCOMPARE(note.Block(QStringLiteral("b")).blockFormat().intProperty(RtfListFirstIndent), -360);
    const QTextList* numbered = note.Block(QStringLiteral("c")).textList();
    QVERIFY(numbered && numbered != list && numbered == note.Block(QStringLiteral("d")).textList());
    QCOMPARE(numbered->format().style(), QTextListFormat::ListUpperRoman);
    QCOMPARE(numbered->format().numberPrefix() + numbered->format().numberSuffix(), QStringLiteral("()"));
    QCOMPARE(numbered->format().intProperty(RtfListStart), 3);
    QVERIFY(!note.Block(QStringLiteral("e")).textList());
    QVERIFY(note.Block(QStringLiteral("f")).textList() &&
            note.Block(QStringLiteral("f")).textList() != numbered);
    QCOMPARE(note.Block(QStringLiteral("g")).textList()->format().stringProperty(RtfListBullet),
             QStringLiteral("\u00D8"));
}

void TestRtfReader::nestedListsCountAnew() {
    const QByteArray tables =
        "{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat4{\\leveltext\\'03(\\'00);}}"
        "{\\listlevel\\levelnfc4{\\leveltext\\'04\\'00.\\'01.;}}{\\listlevel\\levelnfc255{\\leveltext;}}"
        "\\listid9}}"
        "{\\*\\listoverridetable{\\listoverride\\listid9\\ls2}}";
    const ReadNote note(
        Note(tables + "\\pard\\ls2 one\\par\\ls2\\ilvl1 sub\\par\\pard plain\\par\\ls2\\ilvl1 more\\par"
                      "\\pard\\ls2 two\\par\\ls2\\ilvl1 anew\\par\\ilvl2 none\\par\\pard\\ls5 lost\\par"));
    const QTextList* outer = note.Block(QStringLiteral("one")).textList();
    const QTextList* inner = note.Block(QStringLiteral("sub")).textList();
    QVERIFY(outer && inner && outer != inner);
    QCOMPARE(outer->format().numberPrefix() + outer->format().numberSuffix(), QStringLiteral("()"));
    QCOMPARE(outer->format().intProperty(RtfListStart), 4);
    QCOMPARE(inner->format().style(), QTextListFormat::ListLowerAlpha);
    QCOMPARE(inner->format().numberSuffix(), QStringLiteral("."));
    QCOMPARE(inner->format().intProperty(RtfListNumber) * 10 + inner->format().intProperty(RtfListLevel), 21);
    QCOMPARE(inner->format().intProperty(RtfListReadStyle), int(QTextListFormat::ListLowerAlpha));
    QCOMPARE(note.Block(QStringLiteral("more")).textList(), inner);
    QCOMPARE(note.Block(QStringLiteral("two")).textList(), outer);
    QVERIFY(note.Block(QStringLiteral("anew")).textList() != inner);
    QVERIFY(!note.Block(QStringLiteral("none")).textList() && !note.Block(QStringLiteral("lost")).textList());
}

void TestRtfReader::linkAddresses_data() {
    QTest::addColumn<QString>("instruction");
    QTest::addColumn<QString>("address");
    QTest::newRow("quoted") << QStringLiteral(" HYPERLINK \"http://a/b c\" ")
                            << QStringLiteral("http://a/b c");
    QTest::newRow("bare") << QStringLiteral("hyperlink http://a/") << QStringLiteral("http://a/");
    QTest::newRow("bookmark") << QStringLiteral("HYPERLINK \\l \"here\"") << QStringLiteral("#here");
    QTest::newRow("both") << QStringLiteral("HYPERLINK \"f.htm\" \\l \"x\" \\o \"tip\"")
                          << QStringLiteral("f.htm#x");
    QTest::newRow("path") << QStringLiteral("HYPERLINK \"C:\\\\a\\\\b\"") << QStringLiteral("C:\\a\\b");
    QTest::newRow("tip first") << QStringLiteral("HYPERLINK \\o \"tip\" \"u\"") << QStringLiteral("u");
    QTest::newRow("open end") << QStringLiteral("HYPERLINK \"u") << QStringLiteral("u");
    QTest::newRow("another field") << QStringLiteral("PAGE") << QString();
}

void TestRtfReader::linkAddresses() {
    QFETCH(QString, instruction);
    QTEST(LinkAddress(instruction), "address");
}

void TestRtfReader::pictureSizes_data() {
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("goal") << QByteArray("\\pngblip\\picw4\\pich2\\picwgoal300\\pichgoal150")
                          << QSizeF(20, 10);
    QTest::newRow("scaled") << QByteArray("\\pngblip\\picwgoal300\\pichgoal150\\picscalex50\\picscaley200")
                            << QSizeF(10, 20);
    QTest::newRow("cropped") << QByteArray("\\pngblip\\picwgoal300\\pichgoal150\\piccropl60\\piccropb30")
                             << QSizeF(16, 8);
    QTest::newRow("dots") << QByteArray("\\dibitmap0\\picw40\\pich30") << QSizeF(40, 30);
    QTest::newRow("metafile") << QByteArray("\\wmetafile8\\picw2540\\pich1270") << QSizeF(96, 48);
    QTest::newRow("told by its bytes alone")
        << QByteArray("\\pngblip 89504e470d0a1a0a0000000d4948445200000004000000020802000000f0caea340000"
                      "001049444154789c63f8cfc000470cc81c006faa07f980dc00280000000049454e44ae426082")
        << QSizeF(4, 2);
    QTest::newRow("absurd") << QByteArray("\\pngblip\\picwgoal2000000000\\pichgoal-5\\picscalex9999")
                            << QSizeF(20000, 1);
}

void TestRtfReader::pictureSizes() {
    QFETCH(QByteArray, words);
    QFETCH(QSizeF, size);
    const ReadNote note(Note("{\\pict" + words + " 00}"));
    const QTextImageFormat image = note.Look(QStringLiteral("\uFFFC")).toImageFormat();
    QCOMPARE(QSizeF(image.width(), image.height()), size);
}

void TestRtfReader::pictures() {
    // 1 x 1, 24 bits, blue green red.
    const QByteArray dib = QByteArray::fromHex("280000000100000001000000010018000000000004000000000000000000"
                                               "000000000000000000000a141e00");
    const ReadNote note(Note(
        "{\\b{\\*\\shppict{\\pict{\\*\\picprop x}\\dibitmap0\\picw1\\pich1 " + dib.toHex().first(21) +
        "\r\n" + dib.toHex().sliced(21) +
        "}}{\\nonshppict{\\pict\\wmetafile8 01}}}{\\pict\\emfblip\\picwgoal300\\pichgoal300\\bin2 \\}}"));
    QCOMPARE(note.Text(), QStringLiteral("\uFFFC\uFFFC"));
    auto it = note.Document.firstBlock().begin();
    const QTextImageFormat first = it.fragment().charFormat().toImageFormat();
    QCOMPARE(first.property(RtfPictureBytes).toByteArray(), dib);
    QCOMPARE(first.property(RtfPictureKind).toByteArray(), QByteArray("dibitmap0"));
    QCOMPARE(first.property(RtfPictureWords).toByteArray(), QByteArray("{\\*\\picprop x}\\picw1\\pich1"));
    QCOMPARE(first.property(RtfPictureFallback).toByteArray(),
             QByteArray("{\\nonshppict{\\pict\\wmetafile8 01}}"));
    QCOMPARE(first.fontWeight(), int(QFont::Bold));
    const QImage shown =
        note.Document.resource(QTextDocument::ImageResource, QUrl(first.name())).value<QImage>();
    QCOMPARE(shown.size(), QSize(1, 1));
    QCOMPARE(shown.pixelColor(0, 0), QColor(30, 20, 10));
    const QTextImageFormat second = (++it).fragment().charFormat().toImageFormat();
    QCOMPARE(second.property(RtfPictureBytes).toByteArray(), QByteArray("\\}"));
    QCOMPARE(note.Document.resource(QTextDocument::ImageResource, QUrl(second.name())).value<QImage>().size(),
             QSize(20, 20));
}

// A page of huge ones keeps the window busy for half a second only; the others follow.
void TestRtfReader::picturesThatTakeLong() {
    QImage huge(4096, 4096, QImage::Format_Mono);
    huge.fill(0);
    QBuffer png;
    QVERIFY(png.open(QIODevice::WriteOnly) && huge.save(&png, "PNG"));
    QByteArray body;
    // Each with other bytes, so that none is known from another one.
    for (int i = 0; i < 100; ++i)
        body += "{\\pict\\pngblip\\picwgoal300\\pichgoal300 " + png.data().toHex() +
                QByteArray::number(i).toHex() + '}';
    const ReadNote note(Note(body));
    const auto isDecoded = [&note](const QTextBlock::iterator& it) {
        const QUrl name(it.fragment().charFormat().toImageFormat().name());
        // Twice the size in which it is shown, and not the frame that stands for it.
        return note.Document.resource(QTextDocument::ImageResource, name).value<QImage>().width() == 40;
    };
    const QTextBlock::iterator first = note.Document.firstBlock().begin();
    QTextBlock::iterator last = first;
    QVERIFY(isDecoded(first));
    for (auto it = first; !it.atEnd(); ++it) {
        last = it;
        isDecoded(it);
    }
    QVERIFY(!isDecoded(last));
    QTRY_VERIFY(isDecoded(last));
}

// What rich text controls keep: metafiles around one bitmap, and objects with a picture of themselves.
void TestRtfReader::wrappedPictures() {
    const auto words = [](std::initializer_list<int> numbers) {
        QByteArray bytes;
        for (const int number : numbers)
            bytes.append(char(number)).append(char(number >> 8));
        return bytes;
    };
    // 1 x 1, 24 bits, blue green red.
    const QByteArray dib = QByteArray::fromHex("280000000100000001000000010018000000000004000000000000000000"
                                               "000000000000000000000a141e00");
    const QByteArray stretch = words({36, 0, 0x0F43, 0x20, 0xCC, 0, 1, 1, 0, 0, 1, 1, 0, 0}) + dib;
    const QByteArray wmf = words({1, 9, 0x300, 0, 0, 0, 0, 0, 0}) + words({4, 0, 0x0103, 8}) + stretch;
    const QByteArray end = words({3, 0, 0});
    QCOMPARE(RtfPicture(wmf + end, "wmetafile8").pixelColor(0, 0), QColor(30, 20, 10));
    QVERIFY(RtfPicture(wmf + words({5, 0, 0x0213, 0, 0}) + end, "wmetafile8").isNull()); // a line as well
    QVERIFY(RtfPicture(wmf.chopped(20), "wmetafile8").isNull());
    QByteArray emf = words({1, 0, 8, 0, 81, 0, 124, 0}) + QByteArray(40, '\0') +
                     words({80, 0, 40, 0, 120, 0, 4, 0}) + QByteArray(16, '\0') + dib;
    QCOMPARE(RtfPicture(emf, "emfblip").pixelColor(0, 0), QColor(30, 20, 10));
    emf[8 + 49] = '\x7F'; // a bitmap that begins behind the record
    QVERIFY(RtfPicture(emf, "emfblip").isNull());

    const ReadNote note(Note("{\\object\\objemb{\\*\\objdata 01}{\\result{\\pict\\wmetafile8\\picwgoal150"
                             "\\pichgoal150 " +
                             QByteArray(wmf + end).toHex() + "}}}"));
    const QTextCharFormat object = note.Look(QStringLiteral("\uFFFC"));
    QImage picture(10, 10, QImage::Format_RGB32);
    QPainter painter(&picture);
    RtfObjectView view;
    QCOMPARE(view.intrinsicSize(nullptr, 0, object), QSizeF(10, 10));
    view.drawObject(&painter, picture.rect(), const_cast<QTextDocument*>(&note.Document), 0, object);
    QCOMPARE(picture.pixelColor(5, 5), QColor(30, 20, 10));
}

QTEST_MAIN(TestRtfReader)
#include "tst_rtf_reader.moc"
