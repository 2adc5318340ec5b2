#include "core/text/english_dates.h"

namespace paneda {

QString EnglishMonthName(int month) {
    static constexpr QStringView kMonths[] = {u"January",   u"February", u"March",    u"April",
                                              u"May",       u"June",     u"July",     u"August",
                                              u"September", u"October",  u"November", u"December"};
    return month >= 1 && month <= 12 ? kMonths[month - 1].toString() : QString();
}

QString EnglishDayName(int dayOfWeek) {
    static constexpr QStringView kDays[] = {u"Monday", u"Tuesday",  u"Wednesday", u"Thursday",
                                            u"Friday", u"Saturday", u"Sunday"};
    return dayOfWeek >= 1 && dayOfWeek <= 7 ? kDays[dayOfWeek - 1].toString() : QString();
}

QString OrdinalSuffix(int number) {
    const int lastTwo = number % 100;
    const int last = lastTwo >= 11 && lastTwo <= 13 ? 0 : number % 10;
    switch (last) {
    case 1:
        return QStringLiteral("st");
    case 2:
        return QStringLiteral("nd");
    case 3:
        return QStringLiteral("rd");
    default:
        return QStringLiteral("th");
    }
}

QString BuiltDateText(const QDate& date) {
    if (!date.isValid())
        return {};
    return QStringLiteral("%1%2 %3 %4")
        .arg(QString::number(date.day()), OrdinalSuffix(date.day()), EnglishMonthName(date.month()),
             QStringLiteral("%1").arg(date.year(), 4, 10, QLatin1Char('0')));
}

} // namespace paneda
