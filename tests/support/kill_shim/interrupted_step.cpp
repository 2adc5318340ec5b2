#include "support/kill_shim/interrupted_step.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace paneda::test {

namespace {

constexpr int kMostCalls = 10'000;
constexpr int kWait = 30'000; // ms
constexpr char kChildMark[] = "--step";

QProcessEnvironment ChildEnvironment(const QString& folder, const QString& log,
                                     const Interruption& interruption) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(PANEDA_KILL_SHIM));
    environment.insert(QStringLiteral("PANEDA_KILL_FOLDER"), folder);
    environment.insert(QStringLiteral("PANEDA_KILL_AT"), QString::number(interruption.At));
    environment.insert(QStringLiteral("PANEDA_KILL_MODE"), interruption.Mode);
    environment.insert(QStringLiteral("PANEDA_KILL_LOG"), log);
    if (interruption.NamedFilesOnly)
        environment.insert(QStringLiteral("PANEDA_KILL_NAMED"), QStringLiteral("1"));
    environment.insert(QStringLiteral("PANEDA_KILL_SPARE"), interruption.Spared);
    // A sanitizer wants to come first, which the shim does instead.
    const QString options = QStringLiteral("ASAN_OPTIONS");
    environment.insert(options, environment.value(options) + QStringLiteral(":verify_asan_link_order=0"));
    return environment;
}

QStringList CallsIn(const QString& log) {
    QFile file(log);
    QStringList calls;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
            calls.append(line.section(u' ', 1));
    }
    return calls;
}

} // namespace

std::optional<int> RunAsChild(int argc, char** argv, const Steps& steps) {
    if (argc != 4 || qstrcmp(argv[1], kChildMark) != 0)
        return std::nullopt;
    return steps.at(QString::fromLocal8Bit(argv[2]))(QString::fromLocal8Bit(argv[3]));
}

StepEnd RunStep(const QString& step, const QString& folder, const Interruption& interruption) {
    const QTemporaryDir scratch;
    const QString log = scratch.filePath(QStringLiteral("log"));
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedChannels);
    child.setProcessEnvironment(ChildEnvironment(folder, log, interruption));
    child.start(QCoreApplication::applicationFilePath(), {QLatin1StringView(kChildMark), step, folder});
    if (!child.waitForFinished(kWait))
        qFatal("The step %s does not end.", qPrintable(step));
    StepEnd end;
    end.Killed = child.exitStatus() == QProcess::CrashExit;
    end.Status = end.Killed ? -1 : child.exitCode();
    end.Calls = CallsIn(log);
    return end;
}

QString FirstObjection(const QString& step, Interruption interruption,
                       const std::function<void(const QString& folder)>& prepare,
                       const std::function<QString(const QString& folder, const StepEnd& end)>& check) {
    const bool kills = interruption.Mode == u"kill" || interruption.Mode == u"torn";
    for (interruption.At = 1; interruption.At < kMostCalls; ++interruption.At) {
        const QTemporaryDir folder;
        prepare(folder.path());
        const StepEnd end = RunStep(step, folder.path(), interruption);
        const bool interrupted = end.Calls.size() >= interruption.At;
        QString objection = check(folder.path(), end);
        if (objection.isEmpty() && end.Killed != (kills && interrupted))
            objection = QStringLiteral("the child was not ended as asked");
        if (objection.isEmpty() && end.Calls.isEmpty())
            objection = QStringLiteral("the step does nothing");
        if (!objection.isEmpty())
            return QStringLiteral("%1 at call %2: ").arg(interruption.Mode).arg(interruption.At) + objection +
                   QStringLiteral("\n") + end.Calls.join(u'\n');
        if (!interrupted)
            return {};
    }
    return QStringLiteral("the step has no end");
}

} // namespace paneda::test
