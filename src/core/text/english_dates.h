#pragma once

#include <QDate>
#include <QString>

namespace paneda {

// Dates as the program's windows write them: in English, whatever the language of the desktop.

// "January" for 1; empty for what is no month.
QString EnglishMonthName(int month);

// "Monday" for 1 to "Sunday" for 7; empty for what is no day of the week.
QString EnglishDayName(int dayOfWeek);

// "st", "nd", "rd" or "th".
QString OrdinalSuffix(int number);

// "26th February 2011"; empty for an invalid date.
QString BuiltDateText(const QDate& date);

} // namespace paneda
