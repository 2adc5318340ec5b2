#pragma once

#include <QString>
#include <QStringList>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace paneda {

// One start that has been accepted, as the worker sees it that carries it out.
class LaunchTurn {
public:
    explicit LaunchTurn(QString name) : name_(std::move(name)) {}

    // The worker calls it when it knows what to start, right before it starts it. False if the start has been
    // given up meanwhile; the worker then starts nothing and tells nothing.
    bool Begin() { return Leave(Stage::Begun); }

    // Gives the start up, unless it has begun. True if it is given up.
    bool GiveUp() { return Leave(Stage::GivenUp); }

    const QString& Name() const { return name_; }

private:
    enum class Stage { Waiting, Begun, GivenUp };

    bool Leave(Stage next) {
        Stage now = Stage::Waiting;
        return stage_.compare_exchange_strong(now, next);
    }

    QString name_; // of what the user has pressed
    std::atomic<Stage> stage_ = Stage::Waiting;
};

// Threads on which programs are started, each of which a slow disk or a dead network place may hold up for
// any time.
class LaunchWorkers {
public:
    // Must use nothing that may be gone when this object is: its thread may outlive it.
    using Start = std::function<void(LaunchTurn&)>;

    LaunchWorkers();
    // Leaves threads that still work to the end of the process, which has to come by EndProcess.
    ~LaunchWorkers();
    Q_DISABLE_COPY_MOVE(LaunchWorkers)

    // Runs a start on a thread of its own. `name` tells the user which one it is.
    void Run(const QString& name, Start start);

    // Waits for all starts, at most so many milliseconds. Gives up those that have not begun by then and
    // returns their names. Nothing may be run after this.
    QStringList End(int patience);

private:
    std::unique_ptr<QThreadPool> pool_;
    std::vector<std::weak_ptr<LaunchTurn>> turns_; // of starts that may still run
};

} // namespace paneda
