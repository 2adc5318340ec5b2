#pragma once

#include "notes/edit_lock.h"

#include <QDateTime>
#include <QString>

namespace paneda {

// The last save of a note, from the note's Properties.ini; empty texts where the file has none.
struct LastEdit {
    QString User;
    QString Date; // yyyy-mm-dd
    QString Time; // hh:mm:ss
};

// The line under the note's toolbars. For a locked note it names the user who holds the lock; the age is that
// of the last save all the same.
QString NoteCaption(const EditLock& lock, const LastEdit& last, const QDateTime& now);

// The date for the caption's tool tip.
QString NoteTooltip(const LastEdit& last, const QDateTime& now);

// How long ago a note was saved, in words. `date` is "yyyy-mm-dd", `time` "hh:mm" or "hh:mm:ss", whose
// seconds do not count; `now` is local time. The difference is that of the clocks: a change to or from summer
// time in between is not taken into account. For a time in the future the number of minutes is negative.
// Empty when date or time is missing or not valid.
QString AgeText(const QString& date, const QString& time, const QDateTime& now);

// The same moment as a date: "3:05pm" today, "Monday, Nov 2nd 3:05pm" this year, and with the year in any
// other year.
QString FullDateText(const QString& date, const QString& time, const QDateTime& now);

} // namespace paneda
