#pragma once

#include "platform/opener.h"

#include <QThreadPool>

#include <memory>

namespace paneda {

// What goes to the shell. An empty text is passed as none.
struct ShellCall {
    QString Verb; // empty: the default one of the target
    QString File; // empty: nothing to start
    QString Parameters;
    QString Folder;
    ShowCommand Show = ShowCommand::Normal;

    friend bool operator==(const ShellCall&, const ShellCall&) = default;
};

// The shell's call for a request. Looks at the disk: a start folder that is gone is replaced by the target's
// own one, and left out where that is gone as well.
ShellCall PlanShellCall(const LaunchRequest& request, const LaunchPaths& paths);

// Hands targets to the shell on threads of its own, since it may look at a volume that answers slowly and may
// talk to the program that it starts. When the panel ends meanwhile, the process waits for the shell, 30 s at
// most, without a window.
class ShellOpener : public Opener {
public:
    ShellOpener();
    ~ShellOpener() override;
    Q_DISABLE_COPY_MOVE(ShellOpener)

    void Open(const LaunchRequest& request, const LaunchPaths& paths) override;

private:
    std::unique_ptr<QThreadPool> workers_;
};

} // namespace paneda
