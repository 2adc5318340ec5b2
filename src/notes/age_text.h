#pragma once

#include <QDateTime>
#include <QString>

namespace paneda {

// How long ago a note was saved, in words. `date` is "yyyy-mm-dd", `time` "hh:mm" or "hh:mm:ss", whose
// seconds are not looked at; `now` is local time. Clock against clock: a change of daylight saving in between
// is not reckoned. A time to come is a negative number of minutes. Empty when date or time is missing or
// none.
QString AgeText(const QString& date, const QString& time, const QDateTime& now);

// The same moment as a date: "3:05pm" today, "Monday, Nov 2nd 3:05pm" this year, and with the year else.
QString FullDateText(const QString& date, const QString& time, const QDateTime& now);

} // namespace paneda
