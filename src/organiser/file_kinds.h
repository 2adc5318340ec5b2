#pragma once

#include <QString>

namespace paneda {

// What the organiser makes of a file, by its extension alone.
enum class FileKind {
    Shortcut,    // .lnk, .desktop: a button is a copy of it
    WebShortcut, // .url: likewise
    Record,      // .pnd
    Picture,     // of a button, see IsImageExtension
    Plain        // anything else: a button is a record that names it
};

FileKind KindOfFile(const QString& name);

// The line below the icon of the selected file: what the list shows, and the extension behind it except for
// shortcuts ("Notepad", "Site.url.url").
QString TypeLabel(const QString& name);

} // namespace paneda
