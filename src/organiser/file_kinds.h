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

} // namespace paneda
