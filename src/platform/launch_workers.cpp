#include "platform/launch_workers.h"

#include <utility>

namespace paneda {

namespace {

// A start that waits, for a window or for a dead network place, costs a sleeping thread. So there may be more
// of them than anybody presses in the time that such a wait takes, and the next press need not wait for them.
constexpr int kThreads = 64;

} // namespace

LaunchWorkers::LaunchWorkers() : pool_(std::make_unique<QThreadPool>()) {
    pool_->setMaxThreadCount(kThreads);
}

LaunchWorkers::~LaunchWorkers() {
    // The pool's own destructor would wait for as long as it takes.
    if (!pool_->waitForDone(0))
        static_cast<void>(pool_.release());
}

void LaunchWorkers::Run(const QString& name, Start start) {
    std::erase_if(turns_, [](const std::weak_ptr<LaunchTurn>& turn) { return turn.expired(); });
    auto turn = std::make_shared<LaunchTurn>(name);
    turns_.push_back(turn);
    pool_->start([turn, start = std::move(start)] { start(*turn); });
}

QStringList LaunchWorkers::End(int patience) {
    QStringList names;
    if (pool_->waitForDone(patience))
        return names;
    for (const std::weak_ptr<LaunchTurn>& entry : turns_) {
        const std::shared_ptr<LaunchTurn> turn = entry.lock();
        if (turn && turn->GiveUp())
            names.append(turn->Name());
    }
    return names;
}

} // namespace paneda
