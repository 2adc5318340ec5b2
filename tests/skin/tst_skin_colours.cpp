#include "skin/alignment.h"
#include "skin/colour.h"
#include "skin/font_choice.h"
#include "skin/key_colour.h"
#include "skin/sharp_label.h"

#include <QTest>

using namespace paneda;

class TestSkinColours : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ReadsColourTexts_data();
    void ReadsColourTexts();
    void KeyAvoidsTakenColours();
    void CutsOutKey();
    void ReadsAlignmentCodes();
    void KeepsAwayFromKeys();
    void ChoosesInstalledFamily();
    void WrapsLabels_data();
    void WrapsLabels();
};

void TestSkinColours::ReadsColourTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<ColorRef>("color");
    QTest::newRow("six digits") << "12ABef" << ColorRef(0xEFAB12);
    QTest::newRow("empty") << "" << ColorRef(0);
    QTest::newRow("four digits overlap") << "1234" << ColorRef(0x343412);
    QTest::newRow("three digits overlap") << "123" << ColorRef(0x230312);
    QTest::newRow("one digit") << "F" << ColorRef(0x0F000F);
    QTest::newRow("a bad pair counts as 0") << "FFxyFF" << ColorRef(0xFF00FF);
    QTest::newRow("a sign is no digit") << "-1FF+1" << ColorRef(0x00FF00);
    QTest::newRow("the middle of a long text is skipped") << "11223344" << ColorRef(0x442211);
}

void TestSkinColours::ReadsColourTexts() {
    QFETCH(QString, text);
    QFETCH(ColorRef, color);
    QCOMPARE(HexToColor(text), color);
}

void TestSkinColours::KeyAvoidsTakenColours() {
    std::vector<ColorRef> taken;
    QCOMPARE(PickKeyColour(taken).Color, HexToColor(u"FF01FF"));
    for (int i = 1; i <= 9; ++i)
        taken.push_back(HexToColor(QStringLiteral("FF0%1FF").arg(i)));
    const KeyColour tenth = PickKeyColour(taken);
    QCOMPARE(tenth.Color, HexToColor(u"FF10FF"));
    QCOMPARE(tenth.Value, 0xFFFF0AFFu);
}

void TestSkinColours::CutsOutKey() {
    QImage image(3, 1, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, 0xFFFF01FF);
    image.setPixel(1, 0, 0xFFFF02FF);
    image.setPixel(2, 0, 0xFFFF00FF);
    QImage deep = image;
    CutOutKeyColour(deep, KeyAtDepth(0xFFFF01FF, 32));
    QCOMPARE(deep.pixel(0, 0), 0u);
    QCOMPARE(deep.pixel(1, 0), 0xFFFF02FFu);
    CutOutKeyColour(image, KeyAtDepth(0xFFFF01FF, 16));
    QCOMPARE(image.pixel(0, 0), 0xFFFF01FFu);
    QCOMPARE(image.pixel(2, 0), 0u);
}

void TestSkinColours::ReadsAlignmentCodes() {
    QString columns;
    QString rows;
    for (const QChar code : QStringLiteral("1234567890x")) {
        columns += QStringLiteral("LCR").at(int(AlignColumn(QStringView(&code, 1))));
        rows += QStringLiteral("TCB").at(int(AlignRow(QStringView(&code, 1))));
    }
    QCOMPARE(columns, QStringLiteral("LCRLCRLCRRR"));
    QCOMPARE(rows, QStringLiteral("TTTCCCBBBBB"));
    QCOMPARE(AlignColumn(u"11"), Column::Right);
}

void TestSkinColours::KeepsAwayFromKeys() {
    for (const auto& [chosen, kept] :
         std::initializer_list<std::pair<const char16_t*, const char16_t*>>{{u"FF01FF", u"FE01FF"},
                                                                            {u"FF10FF", u"FE10FF"},
                                                                            {u"FF00FF", u"FE00FF"},
                                                                            {u"FFFFFF", u"FFFFFF"},
                                                                            {u"FF0000", u"FF0000"},
                                                                            {u"FF01FE", u"FF01FE"},
                                                                            {u"0001FF", u"0001FF"},
                                                                            {u"000000", u"000000"}})
        QCOMPARE(ColorToHex(AwayFromKeyColours(HexToColor(chosen))), QString::fromUtf16(kept));
}

void TestSkinColours::ChoosesInstalledFamily() {
    FontChoice choice(
        {QStringLiteral("Liberation Sans"), QStringLiteral("Verdana"), QStringLiteral("Arial")});
    QCOMPARE(choice.Family(QStringLiteral("ARIAL")), QStringLiteral("Arial"));
    QCOMPARE(choice.Family(QStringLiteral("Tahoma")), QStringLiteral("Verdana"));
    QCOMPARE(choice.Family(QStringLiteral("small fonts")), QStringLiteral("Liberation Sans"));
    QCOMPARE(choice.Family(QStringLiteral("No Such Font")), QStringLiteral("Verdana"));
    QCOMPARE(choice.Family({}), QStringLiteral("Verdana"));
    QCOMPARE(choice.Offered().join(u' '), QStringLiteral("Arial Liberation Sans Tahoma Verdana"));
    FontChoice odd({QStringLiteral("Only One")});
    QCOMPARE(odd.Family(QStringLiteral("Tahoma")), QStringLiteral("Only One"));
}

void TestSkinColours::WrapsLabels_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("maxLines");
    QTest::addColumn<QStringList>("lines");
    // Ten pixels a character, fifty pixels of room.
    QTest::newRow("one line") << "ab cd ef" << 1 << QStringList{QStringLiteral("ab cd ef")};
    QTest::newRow("a width that is just reached breaks")
        << "ab cd" << 9 << QStringList{QStringLiteral("ab"), QStringLiteral("cd")};
    QTest::newRow("below the width") << "a cd" << 9 << QStringList{QStringLiteral("a cd")};
    QTest::newRow("the last line takes the rest")
        << "abcd efgh ijkl mnop" << 3
        << QStringList{QStringLiteral("abcd"), QStringLiteral("efgh"), QStringLiteral("ijkl mnop")};
    QTest::newRow("a long word stays whole")
        << "abcdefghij k" << 4 << QStringList{QStringLiteral("abcdefghij"), QStringLiteral("k")};
    QTest::newRow("empty") << "" << 3 << QStringList{QStringLiteral("")};
}

void TestSkinColours::WrapsLabels() {
    QFETCH(QString, text);
    QFETCH(int, maxLines);
    QFETCH(QStringList, lines);
    QCOMPARE(WrapLabel(text, 50, maxLines, [](const QString& line) { return 10.0 * double(line.size()); }),
             lines);
}

QTEST_GUILESS_MAIN(TestSkinColours)
#include "tst_skin_colours.moc"
