#include "core/text/timing.h"

#include <QTest>
#include <QTimer>

namespace paneda {

class TestTiming : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CountsAcrossAWrap() {
        quint32 now = 0xFFFFFF00;
        Timing timing([&now] { return now; });
        now += 1500;
        QCOMPARE(timing.Elapsed(), 1500U);
        QCOMPARE(timing.Seconds(), 1.5);
        timing.Reset();
        now += 40;
        QCOMPARE(timing.Elapsed(), 40U);
    }

    void ServesEventsWhileItWaits() {
        quint32 now = 0;
        int served = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            ++served;
            now += 400;
        });
        timer.start(1);
        Timing timing([&now] { return now; });
        timing.WaitUntil(2);
        const int before = served;
        QVERIFY(before >= 5);
        timing.WaitUntil(1);
        QCOMPARE(served, before);
    }
};

} // namespace paneda

QTEST_GUILESS_MAIN(paneda::TestTiming)
#include "tst_timing.moc"
