#pragma once

#include "notes/edit_lock.h"

#include <QDateTime>
#include <QString>

namespace paneda {

// The last save of a note, as its Properties.ini tells it; empty where it tells nothing.
struct LastEdit {
    QString User;
    QString Date; // yyyy-mm-dd
    QString Time; // hh:mm:ss
};

// The line under the note's toolbars. For a locked note it names the holder; the age is that of the last save
// all the same.
QString NoteCaption(const EditLock& lock, const LastEdit& last, const QDateTime& now);

// Its tooltip.
QString NoteTooltip(const LastEdit& last, const QDateTime& now);

} // namespace paneda
