#include "notes/note_caption.h"
#include "notes/recent_change.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_note_texts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ages();
    void dates();
    void recentChanges();
};

// Seconds do not count, neither then nor now.
void tst_note_texts::ages() {
    const QDateTime now({2026, 11, 21}, {6, 30, 20});
    constexpr int kDay = 1440;
    const std::pair<int, QString> ages[] = {{-3, u"-3 minute ago"_s},
                                            {0, u"0 minute ago"_s},
                                            {1, u"1 minute ago"_s},
                                            {2, u"2 minutes ago"_s},
                                            {59, u"59 minutes ago"_s},
                                            {119, u"1 hour ago"_s},
                                            {kDay - 1, u"23 hours ago"_s},
                                            {2 * kDay - 1, u"1 day ago"_s},
                                            {30 * kDay - 1, u"29 days ago"_s},
                                            {30 * kDay, u"on Oct 22nd 2026"_s},
                                            {365 * kDay, u"on Nov 21st 2025"_s}};
    for (const auto& [minutes, text] : ages) {
        const QDateTime then = QDateTime({2026, 11, 21}, {6, 30}, Qt::UTC).addSecs(-60 * minutes);
        QCOMPARE(AgeText(then.toString(u"yyyy-MM-dd"_s), then.toString(u"HH:mm"_s) + u":59"_s, now), text);
    }
    QCOMPARE(AgeText(u"2026-02-11"_s, u"00:00"_s, now), u"on Feb 11th 2026"_s);
    for (const QString& date : {u""_s, u"2026-02-30"_s, u"20.11.2026"_s})
        QCOMPARE(AgeText(date, u"06:00"_s, now), QString());
}

void tst_note_texts::dates() {
    const auto text = [](const QString& date, const QString& time) {
        return FullDateText(date, time, QDateTime({2026, 11, 21}, {6, 30}));
    };
    QCOMPARE(text(u"2026-11-21"_s, u"00:05:09"_s), u"12:05am"_s);
    QCOMPARE(text(u"2026-11-21"_s, u"12:00:00"_s), u"12:00pm"_s);
    QCOMPARE(text(u"2026-11-02"_s, u"09:30"_s), u"Monday, Nov 2nd 9:30am"_s);
    QCOMPARE(text(u"2025-11-21"_s, u"15:05"_s), u"Friday, Nov 21st 2025 3:05pm"_s);
    QCOMPARE(text(u"yesterday"_s, u"15:05"_s), QString());
}

void tst_note_texts::recentChanges() {
    using Age = RecentChange::Age;
    const QDateTime now({2026, 11, 21}, {6, 30, 59});
    const auto change = [&now](const QString& time, int days = 2) { return RecentChangeOf(time, now, days); };
    QCOMPARE(change(u"2026-11-21 06:30:00"_s), (RecentChange{Age::Minutes, 0}));
    QCOMPARE(change(u"2026-11-21 05:31:59"_s), (RecentChange{Age::Minutes, 59}));
    QCOMPARE(change(u"2026-11-21 05:30:59"_s), (RecentChange{Age::Hours, 1}));
    QCOMPARE(change(u"2026-11-20 06:31:00"_s), (RecentChange{Age::Hours, 23}));
    QCOMPARE(change(u"2026-11-20 06:30:00"_s), (RecentChange{Age::Days, 1}));
    QCOMPARE(change(u"2026-11-19 06:30:00"_s), (RecentChange{Age::Days, 2}));
    QCOMPARE(change(u"2026-11-22 06:30:00"_s), (RecentChange{Age::Minutes, 0}));
    QCOMPARE(change(u"2026-11-19 06:29:59"_s), std::nullopt);
    QCOMPARE(change(u"2026-11-21 06:30:00"_s, 0), std::nullopt);
    for (const QString& text : {u""_s, u"2026-11-21"_s, u"yesterday 06:30:00"_s})
        QCOMPARE(change(text), std::nullopt);
}

QTEST_GUILESS_MAIN(tst_note_texts)
#include "tst_note_texts.moc"
