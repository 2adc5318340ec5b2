#pragma once

#include <QtGlobal>

#include <functional>

namespace paneda {

// Milliseconds of a clock that never goes back; wraps after 49 days.
using TickSource = std::function<quint32()>;

// Milliseconds since some moment before the first call in this process.
quint32 CurrentTick();

// A stopwatch, which starts when it is made.
class Timing {
public:
    explicit Timing(TickSource ticks = CurrentTick);

    // Starts again from 0.
    void Reset();

    // Milliseconds since the start; correct even if the clock has wrapped once.
    quint32 Elapsed();

    double Seconds();

    // Processes events until this many seconds have passed since the start. Returns at once if they have.
    void WaitUntil(int seconds);

private:
    TickSource ticks_;
    quint32 startTick_;
};

} // namespace paneda
