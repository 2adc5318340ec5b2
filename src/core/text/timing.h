#pragma once

#include <QtGlobal>

#include <functional>

namespace paneda {

// Milliseconds of a clock that never goes back; wraps after 49 days.
using TickSource = std::function<quint32()>;

// Milliseconds since some moment before the first call in this process.
quint32 CurrentTick();

// A stopwatch. Runs from its making on.
class Timing {
public:
    explicit Timing(TickSource ticks = CurrentTick);

    // Starts anew from 0.
    void Reset();

    // Milliseconds since the start; right across one wrap of the clock.
    quint32 Elapsed();

    double Seconds();

    // Serves events until this many whole seconds have gone since the start. Returns at once when they have.
    void WaitUntil(int seconds);

private:
    TickSource ticks_;
    quint32 startTick_;
};

} // namespace paneda
