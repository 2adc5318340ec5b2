#pragma once

#include "platform/opener.h"

#include <QThreadPool>

namespace paneda {

// Looks at targets and starts processes on threads of its own, so that a volume that answers slowly does not
// hold up the panel. A program that is to be minimized or maximized is followed until its first window is
// there, and the desktop's opener until it has ended, so that a failure is shown. When the panel ends
// meanwhile, the process waits for that, 10 s at most, without a window.
class LinuxOpener : public Opener {
public:
    LinuxOpener();

    void Open(const LaunchRequest& request, const LaunchPaths& paths) override;

private:
    QThreadPool workers_;
};

} // namespace paneda
