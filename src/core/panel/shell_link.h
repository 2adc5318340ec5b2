#pragma once

#include "core/files/file_io.h"
#include "core/panel/launch.h"

#include <QByteArrayView>
#include <QString>

namespace paneda {

// A larger file is no shortcut: those that Windows writes have a few thousand bytes.
inline constexpr qint64 kMaxLinkFile = 1024 * 1024;

// What a Windows shortcut file (.lnk) says. Texts that it lacks are empty; none holds a NUL.
//
// Layout, little endian: a header of 76 bytes with flags that tell which of the parts follow; the target as a
// list of shell items, which only Windows can read and which is skipped; the target as paths (LinkInfo);
// description, relative path, working folder, arguments and icon location, each with its length in front;
// then blocks with a length and a mark, of which the one with the target by environment variables is read.
struct ShellLink {
    // The target, in up to four forms.
    QString LocalPath;       // "C:\Tools\x.exe"
    QString NetworkPath;     // "\\server\share\x.exe"
    QString EnvironmentPath; // may hold "%NAME%"
    QString RelativePath;    // from the folder of the shortcut

    QString Description;
    QString WorkingFolder;
    QString Arguments;    // command line
    QString IconLocation; // a picture, or a program that holds pictures
    int IconIndex = 0;    // in that program; a negative one is a resource number
    ShowCommand Show = ShowCommand::Normal;
};

// The reason of a failure is for the user. The file is refused when it has no header or ends within its
// texts. If LinkInfo or a block at the end is damaged or cut, only its own contents are missing.
// Texts that are not in UTF-16 are taken as Windows-1252.
tl::expected<ShellLink, QString> ParseShellLink(QByteArrayView bytes);

tl::expected<ShellLink, FileError> ReadShellLink(const QString& path);

} // namespace paneda
