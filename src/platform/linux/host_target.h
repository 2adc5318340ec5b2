#pragma once

#include "platform/opener.h"

#include <QString>

namespace paneda {

enum class TargetKind {
    Missing,
    Folder,
    DesktopFile,
    InternetShortcut,
    Shortcut,
    Program,
    ShellScript,
    Document
};

// The kind of an existing path. A file is a program if it has execute permission and its content is
// executable too, because on a volume without permissions every file has that permission. A script needs "#!"
// or the ending ".sh".
TargetKind KindOf(const QString& hostPath);

// The host path of a target: by the drive map, else by the drive map in any case of letters, else, for a bare
// name, the program of that name in the search path. Empty if none of them exists.
QString FindTarget(const QString& target, const LaunchPaths& paths);

// The host path of a stored folder; `fallback` if the folder does not exist, because a missing folder must
// not prevent a start.
QString ExistingFolder(const QString& stored, const LaunchPaths& paths, const QString& fallback);

} // namespace paneda
