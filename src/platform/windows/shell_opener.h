#pragma once

#include "platform/opener.h"

#include <QThreadPool>

#include <memory>

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
// the program that it starts. If the panel ends meanwhile, this process stays without a window until the
// shell has finished, at most 30 s.
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
