// What the hidden panel costs: wake-ups (voluntary context switches of all its threads) and processor time,
// first with the hotkey alone, then with the mouse trigger. Needs an X server with a window manager
// (tools/with-desktop).
//
// usage: bench_idle PANEDA [SECONDS]   (an installed program over its store; 60 s unless told otherwise)

#include "prepared_panel.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QThread>

namespace {

using namespace paneda::bench;

constexpr int kDefaultSeconds = 60;
constexpr int kCalm = 5; // s, until what follows a start is over

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const QStringList arguments = application.arguments();
    const int seconds = arguments.size() > 2 ? arguments[2].toInt() : kDefaultSeconds;
    if (arguments.size() < 2 || seconds < 1) {
        out << "usage: bench_idle PANEDA [SECONDS]\n";
        return 2;
    }
    for (const bool mouse : {false, true}) {
        if (!PreparePanel(arguments[1], {.Hotkey = true, .Mouse = mouse, .HideOnStartup = true})) {
            out << "the settings cannot be written\n";
            return 1;
        }
        const RunningPanel panel(arguments[1]);
        QThread::sleep(kCalm);
        const ProcessCost before = CostOf(panel.ProcessId());
        QThread::sleep(static_cast<unsigned long>(seconds));
        const ProcessCost after = CostOf(panel.ProcessId());
        if (before.Wakeups == 0 || after.Wakeups < before.Wakeups) {
            out << "the panel did not run\n";
            return 1;
        }
        out << QStringLiteral("hidden, %1: %2 wake-ups a second, %3 ms of processor time in %4 s\n")
                   .arg(mouse ? QStringLiteral("mouse trigger") : QStringLiteral("no mouse trigger"))
                   .arg(double(after.Wakeups - before.Wakeups) / seconds, 0, 'f', 2)
                   .arg(after.RanMs - before.RanMs, 0, 'f', 1)
                   .arg(seconds);
        out.flush();
    }
    return 0;
}
