#include "notes/edit_moment.h"

namespace paneda {

namespace {

constexpr qint64 kMinutesPerDay = 24 * 60;

} // namespace

std::optional<EditMoment> ReadMoment(const QString& date, const QString& time) {
    const EditMoment moment{QDate::fromString(date, QStringLiteral("yyyy-MM-dd")),
                            QTime::fromString(time.left(5), QStringLiteral("hh:mm"))};
    if (!moment.Date.isValid() || !moment.Time.isValid())
        return std::nullopt;
    return moment;
}

qint64 MinutesSince(const EditMoment& then, const QDateTime& now) {
    const auto minuteOfDay = [](const QTime& time) { return time.hour() * 60 + time.minute(); };
    return then.Date.daysTo(now.date()) * kMinutesPerDay + minuteOfDay(now.time()) - minuteOfDay(then.Time);
}

} // namespace paneda
