#include "core/store/entries.h"
#include "core/text/text_rules.h"
#include "core/text/twips.h"

#include <QTest>

#include <climits>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_text_rules : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leadingNumber_data();
    void leadingNumber();
    void rounding();
    void textOrderIsThatOfUtf8();
    void sortEntries();
};

void tst_text_rules::leadingNumber_data() {
    QTest::addColumn<double>("expected");
    const std::pair<const char*, double> cases[] = {
        {"", 0},     {"abc", 0},   {"12abc", 12}, {" \t 7", 7}, {"-3.5px", -3.5}, {"+4", 4},
        {"--4", 0},  {"- 4", 0},   {".5", 0.5},   {"5.", 5},    {".", 0},         {"1.2.3", 1.2},
        {"1,5", 1},  {"2e3", 2e3}, {"2E-1x", .2}, {"2e", 2},    {"2e+", 2},       {"e5", 0},
        {"0x10", 0}, {"nan", 0},   {"inf", 0},    {"1e999", 0}, {"1e-999", 0},    {"٣", 0}};
    for (const auto& [text, expected] : cases)
        QTest::newRow(text) << expected;
}

void tst_text_rules::leadingNumber() {
    QTEST(LeadingNumber(QString::fromUtf8(QTest::currentDataTag())), "expected");
    QCOMPARE(LeadingInt(u"-2.9"), -2);
    QCOMPARE(LeadingInt(u"99999999999"), INT_MAX);
    QCOMPARE(LeadingInt(u"-1e300"), INT_MIN);
}

void tst_text_rules::rounding() {
    const std::pair<double, int> cases[] = {{0.5, 0},  {1.5, 2},   {2.5, 2},   {2.51, 3}, {0.49, 0},
                                            {-0.5, 0}, {-1.5, -2}, {-2.5, -2}, {3, 3},    {1e12, INT_MAX}};
    for (const auto& [value, expected] : cases)
        QCOMPARE(RoundHalfEven(value), expected);
    QCOMPARE(ToPixels({-1, -16, 29, 30}), QRect(-1, -2, 1, 2));
    QCOMPARE(TrimBlanks(u"  \ta b\u00A0 "), u"\ta b\u00A0"_s);
}

void tst_text_rules::textOrderIsThatOfUtf8() {
    const QStringList sorted = u"0 A AB Z [001] a é \uD7FF \uE000 \uFFFD 😀 😁"_s.split(u' ');
    for (qsizetype i = 0; i < sorted.size(); ++i) {
        for (qsizetype k = 0; k < sorted.size(); ++k) {
            QCOMPARE(CompareText(sorted[i], sorted[k]) < 0, sorted[i].toUtf8() < sorted[k].toUtf8());
            QCOMPARE(CompareText(sorted[i], sorted[k]) < 0, i < k);
            QCOMPARE(CompareText(sorted[i], sorted[k]) > 0, i > k);
        }
    }
}

void tst_text_rules::sortEntries() {
    struct Entry {
        QString First, Second, Source;
    };
    const auto order = [](std::initializer_list<QString Entry::*> keys, SortOrder direction) {
        std::vector<Entry> list;
        for (const QString& text : u"b10 Z21 b02 a13 b14 []5"_s.split(u' '))
            list.push_back({text.mid(0, 1), text.mid(1, 1), text.mid(2)});
        SortEntries(list, keys, direction);
        QString sources;
        for (const Entry& entry : list)
            sources += entry.Source;
        return sources;
    };
    QCOMPARE(order({&Entry::First}, SortOrder::Ascending), u"153024"_s);
    QCOMPARE(order({&Entry::Second, &Entry::First}, SortOrder::Descending), u"510432"_s);
}

QTEST_GUILESS_MAIN(tst_text_rules)
#include "tst_text_rules.moc"
