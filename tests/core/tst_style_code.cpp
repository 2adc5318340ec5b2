#include "core/store/style_code.h"

#include <QTest>

#include <limits>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_style_code : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void decode_data();
    void decode();
    void widths();
};

// Expected: half height, icon with "!" when drawn, its alignment, font, border and bold, label's place, its
// alignment, label and background.
void tst_style_code::decode_data() {
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* code, const char* expected) {
        QTest::newRow(code) << QString::fromUtf8(expected);
    };
    add("", "0 big 1 4 00 unset 1 00");
    add("0021300110", "1 small! 1 3 00 right 1 00");
    add("1111111351", "0 big! 1 1 11 overlap 5 10");
    // Characters out of range, and a code that is too long.
    add("zzzzzzzzzzz", "0 big 1 4 00 unset 1 00");
    add("11994112911junk", "0 big 9 4 11 left 9 11");
    add("１０１１１１１１１１１", "0 big 1 4 00 unset 1 00"); // digits, but wide ones
}

void tst_style_code::decode() {
    static const char* const kIcons[] = {"none", "big", "small"};
    static const char* const kPlaces[] = {"right", "left", "overlap", "unset"};
    const ButtonStyle style = DecodeStyle(QString::fromUtf8(QTest::currentDataTag()));
    const QString decoded = QString::asprintf(
        "%d %s%s %d %d %d%d %s %d %d%d", style.IsHalfHeight(), kIcons[int(style.Icon)],
        style.DrawIcon ? "!" : "", style.IconAlignment, style.LabelFont, style.LabelBorder, style.LabelBold,
        kPlaces[int(style.LabelPosition)], style.LabelAlignment, style.LabelOn, style.Background);
    QTEST(decoded, "expected");
}

void tst_style_code::widths() {
    struct Row {
        const char* Code;
        double Cap, Units;
        int Twips, Height;
    };
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [code, cap, units, twips, height] :
         {Row{"", 20, 1, 480, 480}, Row{"00", 20, 0.5, 240, 240}, Row{"20", 20, 2, 1020, 240},
          Row{"A1", 20, 10, 5340, 480}, Row{"B1", 20, 1.5, 750, 480}, Row{"J", 20, 9.5, 5070, 480},
          Row{"A", 5, 5, 2640, 480}, Row{"A", 2.5, 2.5, 1290, 480}, Row{"5", 0, 0.5, 240, 480},
          Row{"5", none, 5, 2640, 480}}) {
        const QString text = QString::fromLatin1(code);
        QCOMPARE(ButtonWidthUnits(text, cap), units);
        QCOMPARE(ButtonWidthTwips(text, cap), twips);
        QCOMPARE(ButtonHeight(text), height);
    }
}

QTEST_GUILESS_MAIN(tst_style_code)
#include "tst_style_code.moc"
