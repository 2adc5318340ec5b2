#include "skin/decoding_time.h"

#include <algorithm>
#include <cstring>
#include <ctime>

namespace paneda {

quint32 ProcessorTick() {
    constexpr quint64 kPerSecond = 1000;
    return quint32(quint64(std::clock()) * kPerSecond / quint64(CLOCKS_PER_SEC));
}

TimedBytes::TimedBytes(const QByteArray& bytes, DecodingTime& time, qint64 step)
    : bytes_(bytes), time_(time), step_(step), watch_(time.Ticks) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

TimedBytes::~TimedBytes() {
    time_.Left -= std::min(time_.Left, watch_.Elapsed());
}

qint64 TimedBytes::readData(char* data, qint64 most) {
    late_ = late_ || watch_.Elapsed() >= time_.Left;
    if (late_)
        return -1;
    // A file may send its decoder to a place behind its end.
    const qint64 given = std::max<qint64>(std::min({most, step_, bytes_.size() - pos()}), 0);
    std::memcpy(data, bytes_.constData() + pos(), std::size_t(given));
    return given;
}

} // namespace paneda
