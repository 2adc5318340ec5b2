#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace paneda {

// The keys of a desktop entry file (group "Desktop Entry") that the program uses. Missing keys are empty.
struct DesktopEntry {
    QString Type; // "Application", "Link", ...
    QString Name;
    QString Exec;
    QString Path; // working folder
    QString Icon; // a theme name or a path
    QString Url;  // of type Link
    bool Terminal = false;

    // What menus need.
    QString Title;   // Name in the user's language, where the entry has it
    QString TryExec; // a program without which the entry is not shown
    bool NoDisplay = false;
    bool Hidden = false; // as if the file did not exist
    QStringList Categories;
    QStringList OnlyShowIn; // names of desktops
    QStringList NotShowIn;
};

// The user's languages as desktop entries write them, the wanted one first: "de_AT", "de" for German as in
// Austria. Empty for English.
QStringList EntryLanguages();

DesktopEntry ParseDesktopEntry(const QByteArray& bytes, const QStringList& languages = EntryLanguages());

// Reads at most 1 MiB. If the file cannot be read, all keys are empty.
DesktopEntry ReadDesktopEntry(const QString& file, const QStringList& languages = EntryLanguages());

// The Exec line as program and arguments, without quotes and with field codes replaced, where these are words
// of their own. `files` replace %f, %F, %u and %U; if the line has none of these, they are added at the end.
// Empty if the line has no program or an open quote.
QStringList ExpandExec(const DesktopEntry& entry, const QString& entryFile, const QStringList& files);

} // namespace paneda
