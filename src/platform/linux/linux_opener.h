#pragma once

#include "platform/opener.h"

#include <QThreadPool>

namespace paneda {

// Examines targets and starts processes on other threads, so that the panel does not wait for a slow volume.
// A program that is to be minimized or maximized is watched until its first window appears, and the desktop's
// opener until it ends, so that a failure can be shown. If the panel ends meanwhile, this process stays
// without a window until that is done, at most 10 s.
class LinuxOpener : public Opener {
public:
    LinuxOpener();

    void Open(const LaunchRequest& request, const LaunchPaths& paths) override;

private:
    QThreadPool workers_;
};

} // namespace paneda
