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

// Whether a target is a web address or the like: a scheme of two or more letters and ":", or "www.".
bool IsAddress(const QString& target);

// What an existing path is. A file counts as a program when it may be executed and looks executable: on a
// volume that knows no permissions everything may be. A script needs "#!", or the ending ".sh".
TargetKind KindOf(const QString& hostPath);

// The host path of a target: as the drive map has it, else the same without regard to case, else for a bare
// name the program of that name in the search path. Empty when there is none.
QString FindTarget(const QString& target, const LaunchPaths& paths);

// The host path of a stored folder; the fallback when there is none. A folder that is gone must not keep a
// target from starting.
QString ExistingFolder(const QString& stored, const LaunchPaths& paths, const QString& fallback);

} // namespace paneda
