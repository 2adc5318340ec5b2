#pragma once

#include "platform/opener.h"

#include <QString>
#include <QStringList>

namespace paneda {

// A process to start.
struct StartPlan {
    QString Program; // empty: nothing to start
    QStringList Arguments;
    QString WorkingFolder; // empty: as the panel's own
    // The first window of the process is the target's own, and not one of the desktop's opener.
    bool OwnsWindow = false;

    friend bool operator==(const StartPlan&, const StartPlan&) = default;
};

enum class TargetKind { Missing, Folder, DesktopFile, InternetShortcut, Program, ShellScript, Document };

// Whether a target is a web address or the like: a scheme of two or more letters and ":", or "www.".
bool IsAddress(const QString& target);

// What an existing path is. A file counts as a program when it may be executed and looks executable: on a
// volume that knows no permissions everything may be. A script needs "#!", or the ending ".sh".
TargetKind KindOf(const QString& hostPath);

// The host path of a target: as the drive map has it, else the same without regard to case, else for a bare
// name the program of that name in the search path. Empty when there is none.
QString FindTarget(const QString& target, const LaunchPaths& paths);

// What to start for a request. Documents, folders and addresses go to the desktop's opener.
StartPlan PlanStart(const LaunchRequest& request, const LaunchPaths& paths);

} // namespace paneda
