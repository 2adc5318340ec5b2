#pragma once

#include "core/text/timing.h"

#include <QByteArray>
#include <QIODevice>

#include <limits>

namespace paneda {

// Milliseconds of the processor's time that the process has used, so that a busy machine does not count
// either; on Windows the clock's time.
quint32 ProcessorTick();

// How long pictures may take to be decoded, shared by those that are given the same one. Reading their files
// does not count: a slow disk says nothing about a picture.
struct DecodingTime {
    quint32 Left = 1000; // milliseconds
    TickSource Ticks = ProcessorTick;
};

inline constexpr qint64 kWholeReads = std::numeric_limits<qint64>::max();

// The bytes of one picture as a device that ends when the time is over. A decoder takes that for the end of
// the file, and so comes to an end. Takes what has passed from the time when it is destroyed.
class TimedBytes : public QIODevice {
public:
    // Gives out at most `step` bytes at once, since the time is looked at between two reads. A decoder that
    // cannot bear a short read needs kWholeReads.
    TimedBytes(const QByteArray& bytes, DecodingTime& time, qint64 step);
    ~TimedBytes() override;

    // Whether the decoder wanted bytes when the time was over: its picture is not whole.
    bool WasLate() const { return late_; }

    bool isSequential() const override { return false; }
    qint64 size() const override { return bytes_.size(); }

protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray bytes_;
    DecodingTime& time_;
    qint64 step_;
    Timing watch_;
    bool late_ = false;
};

} // namespace paneda
