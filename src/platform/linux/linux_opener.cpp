#include "platform/linux/linux_opener.h"

#include "platform/linux/session_notice.h"
#include "platform/linux/start_plan.h"
#include "platform/linux/window_watch.h"

#include <QProcess>

namespace paneda {

namespace {

constexpr int kWorkers = 8;

void Start(const StartPlan& plan) {
    if (!plan.Problem.isEmpty())
        TellSession(plan.Problem);
    if (plan.Program.isEmpty())
        return;
    QProcess process;
    process.setProgram(plan.Program);
    process.setArguments(plan.Arguments);
    process.setWorkingDirectory(plan.WorkingFolder);
    process.setStandardInputFile(QProcess::nullDevice());
    qint64 processId = 0;
    // A start that fails shows nothing, as told in Opener.
    if (process.startDetached(&processId) && plan.OwnsWindow && plan.Show != ShowCommand::Normal)
        ShowFirstWindow(processId, plan.Show);
}

} // namespace

LinuxOpener::LinuxOpener() {
    workers_.setMaxThreadCount(kWorkers);
}

void LinuxOpener::Open(const LaunchRequest& request, const LaunchPaths& paths) {
    workers_.start([request, paths] { Start(PlanStart(request, paths)); });
}

} // namespace paneda
