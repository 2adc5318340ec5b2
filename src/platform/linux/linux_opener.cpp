#include "platform/linux/linux_opener.h"

#include "core/files/file_io.h"
#include "platform/linux/session_notice.h"
#include "platform/linux/start_plan.h"
#include "platform/linux/watched_start.h"
#include "platform/linux/window_watch.h"

#include <QProcess>

namespace paneda {

namespace {

constexpr int kWaitAtEnd = 500;      // ms
constexpr int kLastNoticeWait = 100; // ms

// Empty, or why it does not run.
QString StartDetached(const StartPlan& plan) {
    QProcess process;
    process.setProgram(plan.Program);
    process.setArguments(plan.Arguments);
    process.setWorkingDirectory(plan.WorkingFolder);
    process.setStandardInputFile(QProcess::nullDevice());
    qint64 processId = 0;
    if (!process.startDetached(&processId))
        return FileError{plan.Program, QStringLiteral("The program cannot be started.")}.Text();
    if (plan.Show != ShowCommand::Normal)
        ShowFirstWindow(processId, plan.Show);
    return {};
}

QString StartOpener(const StartPlan& plan) {
    const QString reason = StartWatched(plan.Program, plan.Arguments, plan.WorkingFolder);
    return reason.isEmpty() ? QString() : FileError{plan.Arguments.last(), reason}.Text();
}

void Start(const LaunchRequest& request, const LaunchPaths& paths, LaunchTurn& turn) {
    const StartPlan plan = PlanStart(request, paths);
    if (!turn.Begin())
        return;
    QString problem = plan.Problem;
    if (!plan.Program.isEmpty())
        problem = ProblemText(request.Name, plan.OwnsWindow ? StartDetached(plan) : StartOpener(plan));
    if (!problem.isEmpty())
        TellSession(problem);
}

} // namespace

LinuxOpener::~LinuxOpener() {
    QStringList problems;
    const QString reason =
        QStringLiteral("The disk or the network did not answer before Paneda Launcher ended.");
    for (const QString& name : workers_.End(kWaitAtEnd))
        problems.append(ProblemText(name, reason));
    if (!problems.isEmpty())
        TellSession(problems.join(u'\n'), kLastNoticeWait);
}

void LinuxOpener::Open(const LaunchRequest& request, const LaunchPaths& paths) {
    workers_.Run(request.Name, [request, paths](LaunchTurn& turn) { Start(request, paths, turn); });
}

} // namespace paneda
