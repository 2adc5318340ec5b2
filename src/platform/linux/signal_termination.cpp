#include "platform/linux/signal_termination.h"

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace paneda {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

// A signal handler can only use global variables.
std::atomic<int> signalPipe{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void OnSignal(int) {
    const int savedError = errno;
    const char byte = 0;
    // If the pipe is full, a request already waits in it.
    [[maybe_unused]] const ssize_t written = ::write(signalPipe, &byte, 1);
    errno = savedError;
}

void Handle(int signal) {
    struct sigaction current {};
    if (::sigaction(signal, nullptr, &current) != 0 || current.sa_handler == SIG_IGN)
        return;
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART | SA_RESETHAND;
    ::sigaction(signal, &action, nullptr);
}

void Forget(int signal) {
    struct sigaction current {};
    if (::sigaction(signal, nullptr, &current) == 0 && current.sa_handler == OnSignal)
        ::signal(signal, SIG_DFL);
}

} // namespace

SignalTermination::~SignalTermination() {
    if (readEnd_ < 0)
        return;
    for (const int signal : kSignals)
        Forget(signal);
    notifier_.reset();
    ::close(signalPipe.exchange(-1));
    ::close(readEnd_);
}

void SignalTermination::OnRequest(std::function<void()> end) {
    end_ = std::move(end);
    int ends[2];
    // Without a pipe the signals keep their default effect, which ends the program too.
    if (readEnd_ >= 0 || ::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    readEnd_ = ends[0];
    signalPipe = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(readEnd_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_, [this] { ReadPipe(); });
    for (const int signal : kSignals)
        Handle(signal);
}

void SignalTermination::ReadPipe() {
    char bytes[16];
    if (::read(readEnd_, bytes, sizeof bytes) <= 0)
        return;
    // Later, because the call may delete the notifier that is calling.
    QMetaObject::invokeMethod(
        &context_,
        [this] {
            const std::function<void()> end = end_;
            end();
        },
        Qt::QueuedConnection);
}

} // namespace paneda
