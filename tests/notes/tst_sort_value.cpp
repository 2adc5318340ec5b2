#include "core/text/text_rules.h"
#include "notes/sort_value.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_sort_value : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void chooses_data();
    void chooses();
    void renumberingKeepsTheOrder();
};

void tst_sort_value::chooses_data() {
    QTest::addColumn<NodePosition>("position");
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("level"); // texts between ","
    QTest::addColumn<QString>("sort");
    QTest::addColumn<bool>("renumber");

    using enum NodePosition;
    const QString two = u"0001000000,0002000000"_s;
    QTest::newRow("first of a tree") << Below << u"0000000000"_s << u""_s << u"0001000000"_s << false;
    QTest::newRow("above the first") << Above << u"0001000000"_s << two << u"0000500000"_s << false;
    QTest::newRow("a half rounds up")
        << Above << u"0000000005"_s << u"0000000005"_s << u"0000000003"_s << false;
    QTest::newRow("gap 1, below") << Below << u"0000000005"_s << u"0000000005,0000000006"_s
                                  << u"0000000006.5"_s << true;
    QTest::newRow("gap 1, above") << Above << u"0000000006"_s << u"0000000005,0000000006"_s
                                  << u"0000000004.5"_s << true;
    QTest::newRow("nothing above 1") << Above << u"0000000001"_s << u"0000000001"_s << u"-0000000000.5"_s
                                     << true;
    QTest::newRow("temporary form") << Below << u"0000000005"_s << u"0000000005,0000000005.5"_s
                                    << u"0000000006.0"_s << true;
    QTest::newRow("equal ones are no neighbours")
        << Below << u"0001000000"_s << u"0001000000,0001000000,0003000000"_s << u"0002000000"_s << false;
    QTest::newRow("absent sorts first") << Below << u""_s << u",0001000000"_s << u"0000500000"_s << false;
    QTest::newRow("above an absent one") << Above << u""_s << u",0001000000"_s << u"-0000000000.5"_s << true;
    QTest::newRow("the last ten digits") << Child << u""_s << u"9998999999"_s << u"9999999999"_s << false;
}

void tst_sort_value::chooses() {
    QFETCH(const NodePosition, position);
    QFETCH(const QString, base);
    QFETCH(const QString, level);
    const SortChoice choice = ChooseSort(position, base, NeighbourSort(position, base, level.split(u',')));
    QTEST(choice.Sort, "sort");
    QTEST(choice.Renumber, "renumber");
}

// Killed behind any write, a level stands in its order, equal texts by place.
void tst_sort_value::renumberingKeepsTheOrder() {
    QRandomGenerator random(4711);
    const QStringList odd{u""_s,          u"-0000000000.5"_s, u"A"_s, u"99999999999"_s, u"0000000004.5"_s,
                          u"0003000000"_s};
    for (int run = 0; run < 2'000; ++run) {
        const int count = random.bounded(12);
        const double scale = std::pow(10, random.bounded(11));
        QStringList level;
        for (int i = 0; i < count; ++i)
            level.append(random.bounded(5) == 0 ? odd[random.bounded(int(odd.size()))]
                                                : FormatSort(random.generateDouble() * scale));
        std::sort(level.begin(), level.end(),
                  [](const QString& a, const QString& b) { return CompareText(a, b) < 0; });
        const QStringList wanted = EvenSorts(std::size_t(count));
        for (const SortWrite& write : PlanRenumber(level, wanted)) {
            QVERIFY(level[qsizetype(write.Index)] != write.Sort);
            level[qsizetype(write.Index)] = write.Sort;
            QVERIFY2(std::is_sorted(level.begin(), level.end(),
                                    [](const QString& a, const QString& b) { return CompareText(a, b) < 0; }),
                     qPrintable(level.join(u' ')));
        }
        QCOMPARE(level, wanted);
    }
}

QTEST_GUILESS_MAIN(tst_sort_value)
#include "tst_sort_value.moc"
