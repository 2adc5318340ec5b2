#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace paneda {

// What the program needs of a desktop entry file (group "Desktop Entry"). Missing keys are empty.
struct DesktopEntry {
    QString Type; // "Application", "Link", ...
    QString Name;
    QString Exec;
    QString Path; // working folder
    QString Icon; // a theme name or a path
    QString Url;  // of type Link
    bool Terminal = false;
};

DesktopEntry ParseDesktopEntry(const QByteArray& bytes);

// Reads at most 1 MiB; a file that cannot be read is an entry without keys.
DesktopEntry ReadDesktopEntry(const QString& file);

// The Exec line as program and arguments: quotes undone, field codes replaced. `files` stand for %f, %F, %u
// and %U; where the line has none of them they follow at the end. Empty for a line without a program or with
// an open quote.
QStringList ExpandExec(const DesktopEntry& entry, const QString& entryFile, const QStringList& files);

} // namespace paneda
