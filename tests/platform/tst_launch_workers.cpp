#include "platform/launch_workers.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QTest>

#include <atomic>

using namespace paneda;
using namespace Qt::StringLiterals;

class tst_launch_workers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void end();
};

// Starts that a dead network place holds up: neither the next start nor the end waits for them, and what the
// user has been told not to expect does not happen later.
void tst_launch_workers::end() {
    struct Places {
        QSemaphore Held;
        std::atomic<int> Waiting = 0;
        std::atomic<int> Begun = 0;
        std::atomic<int> Refused = 0;
    };
    const auto places = std::make_shared<Places>();
    auto workers = std::make_unique<LaunchWorkers>();
    const auto wait = [places](LaunchTurn& turn) {
        ++places->Waiting;
        places->Held.acquire();
        ++(turn.Begin() ? places->Begun : places->Refused);
    };
    const auto begin = [places](LaunchTurn& turn) {
        places->Begun += turn.Begin();
        ++places->Waiting;
        places->Held.acquire(); // for a window
    };
    for (int i = 0; i < 20; ++i)
        workers->Run(u"dead %1"_s.arg(i), wait);
    workers->Run(u"begun"_s, begin);
    QTRY_COMPARE(places->Waiting, 21);
    QElapsedTimer clock;
    clock.start();
    const QStringList left = workers->End(50);
    workers.reset();
    QVERIFY2(clock.elapsed() < 1000, "the end waited for a start");
    QCOMPARE(left.size(), 20);
    QCOMPARE(left[0], u"dead 0"_s);
    places->Held.release(21);
    QTRY_COMPARE(places->Refused, 20);
    QCOMPARE(places->Begun, 1);
}

QTEST_GUILESS_MAIN(tst_launch_workers)
#include "tst_launch_workers.moc"
