#include "platform/linux/linux_opener.h"

#include "platform/linux/start_plan.h"
#include "platform/linux/window_watch.h"

#include <QProcess>

namespace paneda {

namespace {

constexpr int kWorkers = 8;

void Start(const StartPlan& plan, ShowCommand show) {
    if (plan.Program.isEmpty())
        return;
    QProcess process;
    process.setProgram(plan.Program);
    process.setArguments(plan.Arguments);
    process.setWorkingDirectory(plan.WorkingFolder);
    process.setStandardInputFile(QProcess::nullDevice());
    qint64 processId = 0;
    // A start that fails shows nothing, as told in Opener.
    if (process.startDetached(&processId) && plan.OwnsWindow && show != ShowCommand::Normal)
        ShowFirstWindow(processId, show);
}

} // namespace

LinuxOpener::LinuxOpener() {
    workers_.setMaxThreadCount(kWorkers);
}

void LinuxOpener::Open(const LaunchRequest& request, const LaunchPaths& paths) {
    workers_.start([request, paths] { Start(PlanStart(request, paths), request.Show); });
}

} // namespace paneda
