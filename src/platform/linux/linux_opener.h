#pragma once

#include "platform/launch_workers.h"
#include "platform/opener.h"

namespace paneda {

// Examines targets and starts processes on other threads, so that the panel does not wait for a slow volume.
// A program that is to be minimized or maximized is watched until its first window appears, and the desktop's
// opener until it ends, so that a failure can be shown. The end of the panel cuts this short. What could not
// be started by then is told to the user.
class LinuxOpener : public Opener {
public:
    LinuxOpener() = default;
    ~LinuxOpener() override;
    Q_DISABLE_COPY_MOVE(LinuxOpener)

    void Open(const LaunchRequest& request, const LaunchPaths& paths) override;

private:
    LaunchWorkers workers_;
};

} // namespace paneda
