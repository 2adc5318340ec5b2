#include "notes/age_text.h"

#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_note_texts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ages_data();
    void ages();
    void dates_data();
    void dates();
};

void tst_note_texts::ages_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("expected");
    // `now` less so many minutes, at any second.
    const auto ago = [](int minutes, const QString& expected) {
        const QDateTime then = QDateTime({2026, 11, 21}, {6, 30}, Qt::UTC).addSecs(-60 * minutes);
        QTest::addRow("%d minutes", minutes)
            << then.toString(u"yyyy-MM-dd"_s) << then.toString(u"HH:mm"_s) + u":59"_s << expected;
    };
    constexpr int kDay = 1440;
    ago(-3, u"-3 minute ago"_s);
    ago(0, u"0 minute ago"_s);
    ago(1, u"1 minute ago"_s);
    ago(2, u"2 minutes ago"_s);
    ago(59, u"59 minutes ago"_s);
    ago(60, u"1 hour ago"_s);
    ago(119, u"1 hour ago"_s);
    ago(120, u"2 hours ago"_s);
    ago(kDay - 1, u"23 hours ago"_s);
    ago(kDay, u"1 day ago"_s);
    ago(2 * kDay - 1, u"1 day ago"_s);
    ago(2 * kDay, u"2 days ago"_s);
    ago(30 * kDay - 1, u"29 days ago"_s);
    ago(30 * kDay, u"on Oct 22nd 2026"_s);
    ago(365 * kDay, u"on Nov 21st 2025"_s);
    QTest::newRow("eleventh") << u"2026-02-11"_s << u"00:00"_s << u"on Feb 11th 2026"_s;
    QTest::newRow("third") << u"1999-05-03"_s << u"00:00"_s << u"on May 3rd 1999"_s;
    for (const auto& [date, time] :
         {std::pair(u""_s, u"06:00:00"_s), std::pair(u"2026-11-20"_s, u""_s),
          std::pair(u"2026-02-30"_s, u"06:00"_s), std::pair(u"20.11.2026"_s, u"6"_s)})
        QTest::addRow("none: %s %s", qPrintable(date), qPrintable(time)) << date << time << QString();
}

void tst_note_texts::ages() {
    QFETCH(QString, date);
    QFETCH(QString, time);
    for (const int second : {0, 59}) {
        const QDateTime now({2026, 11, 21}, {6, 30, second});
        QTEST(AgeText(date, time, now), "expected");
    }
}

void tst_note_texts::dates_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("expected");
    QTest::newRow("today, midnight") << u"2026-11-21"_s << u"00:05:09"_s << u"12:05am"_s;
    QTest::newRow("today, noon") << u"2026-11-21"_s << u"12:00:00"_s << u"12:00pm"_s;
    QTest::newRow("today, evening") << u"2026-11-21"_s << u"23:59:59"_s << u"11:59pm"_s;
    QTest::newRow("this year") << u"2026-11-02"_s << u"09:30"_s << u"Monday, Nov 2nd 9:30am"_s;
    QTest::newRow("later this year") << u"2026-12-13"_s << u"13:00"_s << u"Sunday, Dec 13th 1:00pm"_s;
    QTest::newRow("another year") << u"2025-11-21"_s << u"15:05"_s << u"Friday, Nov 21st 2025 3:05pm"_s;
    QTest::newRow("none") << u"yesterday"_s << u"15:05"_s << QString();
}

void tst_note_texts::dates() {
    QFETCH(QString, date);
    QFETCH(QString, time);
    QTEST(FullDateText(date, time, QDateTime({2026, 11, 21}, {6, 30})), "expected");
}

QTEST_GUILESS_MAIN(tst_note_texts)
#include "tst_note_texts.moc"
