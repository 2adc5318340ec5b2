#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>

namespace paneda::test {

// A change to a folder, made by a child process; the result is the child's exit status.
using Step = std::function<int(const QString& folder)>;
using Steps = std::map<QString, Step>;

// What is done to the child.
struct Interruption {
    int At = 0;                            // number of the call, from 1; 0: nothing
    QString Mode = QStringLiteral("kill"); // as in kill_shim.c
    bool NamedFilesOnly = false;           // as on a stick, whose file system has no files without a name
    QString Spared = {};                   // end of names on which calls are not counted
};

struct StepEnd {
    bool Killed = false;
    int Status = -1;   // of a child that came to its end
    QStringList Calls; // those that were counted, "write /folder/file", the last one being that of the kill
};

// To be called first by the main function of a test that has steps: the child's exit status where this
// process is a child.
std::optional<int> RunAsChild(int argc, char** argv, const Steps& steps);

// Starts this program again for one step.
StepEnd RunStep(const QString& step, const QString& folder, const Interruption& interruption);

// Interrupts a step at its first counted call, at its second and so on, until it comes to its end without
// being interrupted; each time in a new folder that `prepare` has filled. `check` tells what is wrong with
// the folder afterwards, or nothing. The result is the first such text, with the calls that led to it, or
// empty.
QString FirstObjection(const QString& step, Interruption interruption,
                       const std::function<void(const QString& folder)>& prepare,
                       const std::function<QString(const QString& folder, const StepEnd& end)>& check);

} // namespace paneda::test
