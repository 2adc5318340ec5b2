#pragma once

#include "platform/opener.h"

#include <QString>
#include <QStringList>

namespace paneda {

// A process to start.
struct StartPlan {
    QString Program; // empty: nothing to start
    QStringList Arguments;
    QString WorkingFolder; // empty: that of the panel
    // The first window of the process belongs to the target and not to the desktop's opener.
    bool OwnsWindow = false;
    ShowCommand Show = ShowCommand::Normal; // of that window
    // Why there is nothing to start, for the user: what was pressed, the path and the reason. Empty when
    // there is something to start.
    QString Problem = {};

    friend bool operator==(const StartPlan&, const StartPlan&) = default;
};

// What to start for a request. Documents, folders and addresses go to the desktop's opener. A Windows
// shortcut is replaced by its target.
StartPlan PlanStart(const LaunchRequest& request, const LaunchPaths& paths);

} // namespace paneda
