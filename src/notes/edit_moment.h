#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace paneda {

// When a note was last edited, in local time, as the keys hold it. Seconds are left out.
struct EditMoment {
    QDate Date;
    QTime Time;
};

// From "yyyy-mm-dd" and "hh:mm:ss"; nothing for other texts.
std::optional<EditMoment> ReadMoment(const QString& date, const QString& time);

// Whole minutes; negative when the moment lies behind `now`, as where another machine's clock is ahead.
qint64 MinutesSince(const EditMoment& then, const QDateTime& now);

} // namespace paneda
