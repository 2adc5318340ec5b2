#include "notes/note_caption.h"

#include "notes/age_text.h"

namespace paneda {

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

} // namespace paneda
