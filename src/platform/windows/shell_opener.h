#pragma once

#include "platform/launch_workers.h"
#include "platform/opener.h"

namespace paneda {

// The arguments of the call to the shell. An empty text is passed as null.
struct ShellCall {
    QString Verb; // empty: the default one of the target
    QString File; // empty: nothing to start
    QString Parameters;
    QString Folder;
    ShowCommand Show = ShowCommand::Normal;

    friend bool operator==(const ShellCall&, const ShellCall&) = default;
};

// The call to the shell for a request. Reads the disk: a start folder that does not exist is replaced by the
// target's folder, and left empty if that does not exist either.
ShellCall PlanShellCall(const LaunchRequest& request, const LaunchPaths& paths);

// Passes targets to the shell on other threads, because the shell may access a slow volume and may wait for
// the program that it starts. The end of the panel cuts a call short that takes longer than half a second,
// and closes a message of the shell.
class ShellOpener : public Opener {
public:
    ShellOpener() = default;
    ~ShellOpener() override;
    Q_DISABLE_COPY_MOVE(ShellOpener)

    void Open(const LaunchRequest& request, const LaunchPaths& paths) override;

private:
    LaunchWorkers workers_;
};

} // namespace paneda
