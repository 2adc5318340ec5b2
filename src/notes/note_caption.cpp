#include "notes/note_caption.h"

#include "core/text/english_dates.h"
#include "notes/edit_moment.h"

namespace paneda {

namespace {

constexpr qint64 kMinutesPerHour = 60;
constexpr qint64 kMinutesPerDay = 24 * kMinutesPerHour;

// "Nov 2nd"
QString MonthAndDay(const QDate& date) {
    return EnglishMonthName(date.month()).left(3) + u' ' + QString::number(date.day()) +
           OrdinalSuffix(date.day());
}

// "3:05pm"
QString ClockText(const QTime& time) {
    const int hour = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    return QStringLiteral("%1:%2%3")
        .arg(hour)
        .arg(time.minute(), 2, 10, QLatin1Char('0'))
        .arg(time.hour() < 12 ? QStringLiteral("am") : QStringLiteral("pm"));
}

} // namespace

QString NoteCaption(const EditLock& lock, const LastEdit& last, const QDateTime& now) {
    const QString age = AgeText(last.Date, last.Time, now);
    if (lock.LockedByOther)
        return QStringLiteral("Editing :  ") + LockHolder(lock.EditingValue) +
               QStringLiteral("   Started : ") + age;
    return QStringLiteral("Last Edited :  by ") + last.User + u' ' + age;
}

QString NoteTooltip(const LastEdit& last, const QDateTime& now) {
    return FullDateText(last.Date, last.Time, now);
}

QString AgeText(const QString& date, const QString& time, const QDateTime& now) {
    const auto then = ReadMoment(date, time);
    if (!then)
        return {};
    const qint64 minutes = MinutesSince(*then, now);
    const qint64 days = minutes / kMinutesPerDay;
    const auto count = [](qint64 number, const QString& unit) -> QString {
        return QString::number(number) + unit;
    };
    if (minutes <= 1)
        return count(minutes, QStringLiteral(" minute ago"));
    if (minutes < kMinutesPerHour)
        return count(minutes, QStringLiteral(" minutes ago"));
    if (minutes < 2 * kMinutesPerHour)
        return count(minutes / kMinutesPerHour, QStringLiteral(" hour ago"));
    if (minutes < kMinutesPerDay)
        return count(minutes / kMinutesPerHour, QStringLiteral(" hours ago"));
    if (days < 2)
        return count(days, QStringLiteral(" day ago"));
    if (days < 30)
        return count(days, QStringLiteral(" days ago"));
    return QStringLiteral("on ") + MonthAndDay(then->Date) + u' ' + QString::number(then->Date.year());
}

QString FullDateText(const QString& date, const QString& time, const QDateTime& now) {
    const auto then = ReadMoment(date, time);
    if (!then)
        return {};
    const QString clock = ClockText(then->Time);
    if (then->Date == now.date())
        return clock;
    const QString day =
        EnglishDayName(then->Date.dayOfWeek()) + QStringLiteral(", ") + MonthAndDay(then->Date);
    if (then->Date.year() == now.date().year())
        return day + u' ' + clock;
    return day + u' ' + QString::number(then->Date.year()) + u' ' + clock;
}

} // namespace paneda
