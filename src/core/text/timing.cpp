#include "core/text/timing.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>

namespace paneda {

namespace {

constexpr int kMillisecondsPerSecond = 1000;
constexpr unsigned long kPause = 5; // ms between two looks at the events, so that waiting costs little

} // namespace

quint32 CurrentTick() {
    static const QElapsedTimer timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return quint32(timer.elapsed());
}

Timing::Timing(TickSource ticks) : ticks_(std::move(ticks)), startTick_(ticks_()) {}

void Timing::Reset() {
    startTick_ = ticks_();
}

quint32 Timing::Elapsed() {
    return ticks_() - startTick_;
}

double Timing::Seconds() {
    return double(Elapsed()) / kMillisecondsPerSecond;
}

void Timing::WaitUntil(int seconds) {
    while (int(Elapsed() / kMillisecondsPerSecond) < seconds) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, int(kPause));
        QThread::msleep(kPause);
    }
}

} // namespace paneda
