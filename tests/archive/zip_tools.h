#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace paneda::test {

inline bool HasProgram(const QString& name) {
    return !QStandardPaths::findExecutable(name).isEmpty();
}

// Runs a program of the host in a folder. Empty when it went well, else what it said.
inline QString RunTool(const QString& program, const QStringList& arguments, const QString& folder) {
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool ended = process.waitForFinished();
    const QString output = QString::fromLocal8Bit(process.readAll());
    const bool good = ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return good ? QString() : program + QStringLiteral(": ") + output + process.errorString();
}

} // namespace paneda::test
