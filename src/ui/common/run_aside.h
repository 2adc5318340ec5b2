#pragma once

#include <QObject>
#include <QThread>

#include <functional>
#include <memory>
#include <utility>

namespace paneda {

// Calls `work` on a thread of its own, and then `done` with its result from the event loop of `receiver`.
// `done` is not called when the receiver has been destroyed. The thread may outlive the receiver: `work` must
// use nothing but what it holds itself. Work that never ends, as on a dead network place, stays until
// EndProcess.
template <class Result>
void RunAside(QObject& receiver, std::function<Result()> work, std::function<void(Result)> done) {
    auto result = std::make_shared<Result>();
    QThread* thread = QThread::create([result, work = std::move(work)] { *result = work(); });
    QObject::connect(thread, &QThread::finished, &receiver,
                     [result, done = std::move(done)] { done(std::move(*result)); });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

} // namespace paneda
