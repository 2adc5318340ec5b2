// Time from the press of the hotkey, as a key event of the X server, to the first painted frame of the warm
// panel. Seen from outside, by the pixels in the window. Needs an X server with a window manager
// (tools/with-desktop). For the slowest calls it tells what the panel and the other programs of the desktop
// (X server, window manager, compositor: the children of this program's parent) did in that time.
//
// usage: bench_show PANEDA   (an installed program over its store, whose hotkey becomes Ctrl+Alt+K)

#include "prepared_panel.h"
#include "x_keys.h"
#include "x_window.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTextStream>
#include <QThread>

#include <algorithm>
#include <functional>

#include <unistd.h>

namespace {

using namespace paneda::bench;

constexpr int kCalls = 100;
constexpr int kWarmUp = 3;
constexpr int kGiveUp = 5000; // ms
constexpr int kSettle = 80;   // ms, for the window manager to give the focus
constexpr int kSlowest = 5;   // calls that are told of one by one
constexpr int kLook = 100; // us between two looks; without a pause they would take a processor for themselves

struct Call {
    double Ms = 0;
    ProcessCost Panel;
    ProcessCost Others; // of the same desktop
};

// Who is on the desktop.
struct Cast {
    qint64 Panel = 0;
    std::vector<qint64> Others;
};

std::vector<qint64> ChildrenOfParent(qint64 except) {
    std::vector<qint64> children;
    QFile list(QStringLiteral("/proc/%1/task/%1/children").arg(getppid()));
    if (!list.open(QIODevice::ReadOnly))
        return children;
    for (const QByteArray& id : list.readAll().simplified().split(' ')) {
        if (id.toLongLong() != except && id.toLongLong() != getpid())
            children.push_back(id.toLongLong());
    }
    return children;
}

ProcessCost CostOfAll(const std::vector<qint64>& processes) {
    ProcessCost sum;
    for (const qint64 process : processes) {
        const ProcessCost cost = CostOf(process);
        sum.RanMs += cost.RanMs;
        sum.WaitedMs += cost.WaitedMs;
    }
    return sum;
}

ProcessCost Difference(const ProcessCost& after, const ProcessCost& before) {
    return {after.Wakeups - before.Wakeups, after.RanMs - before.RanMs, after.WaitedMs - before.WaitedMs};
}

bool WaitFor(const std::function<bool()>& condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > kGiveUp)
            return false;
        QThread::usleep(100);
    }
    return true;
}

// The time is below 0 if the frame did not come.
Call OneCall(XKeys& keys, const XWindow& window, const PanelPixels& pixels, const Cast& cast) {
    QElapsedTimer timer;
    keys.HoldModifiers();
    const ProcessCost panel = CostOf(cast.Panel);
    const ProcessCost others = CostOfAll(cast.Others);
    timer.start();
    keys.PressK();
    while (window.Pixels(pixels.Places) != pixels.Colours) {
        if (timer.elapsed() > kGiveUp)
            return {-1, {}, {}};
        QThread::usleep(kLook);
    }
    const double time = double(timer.nsecsElapsed()) / 1e6;
    const Call call{time, Difference(CostOf(cast.Panel), panel), Difference(CostOfAll(cast.Others), others)};
    keys.ReleaseAll();
    QThread::msleep(kSettle);
    return call;
}

void PrintCall(QTextStream& out, const QString& name, const Call& call) {
    out << QStringLiteral("%1 %2 ms: the panel ran %3 and waited %4 for a processor, "
                          "the desktop's others ran %5 and waited %6\n")
               .arg(name, -7)
               .arg(call.Ms, 0, 'f', 2)
               .arg(call.Panel.RanMs, 0, 'f', 2)
               .arg(call.Panel.WaitedMs, 0, 'f', 2)
               .arg(call.Others.RanMs, 0, 'f', 2)
               .arg(call.Others.WaitedMs, 0, 'f', 2);
}

bool Hide(XKeys& keys, const XWindow& window, const PanelPixels& pixels) {
    keys.HoldModifiers();
    keys.PressK();
    keys.ReleaseAll();
    const bool hidden = WaitFor([&] { return window.Pixels(pixels.Places).isEmpty(); });
    QThread::msleep(kSettle);
    return hidden;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 2 || !PreparePanel(arguments.value(1), {.Hotkey = true})) {
        out << "usage: bench_show PANEDA\n";
        return 2;
    }
    XWindow window;
    XKeys keys;
    const RunningPanel panel(arguments[1]);
    PanelPixels pixels;
    const auto shown = [&] {
        pixels = ReadPanelPixels(PanelPicture(arguments[1]));
        return window.Find(panel.ProcessId()) && !pixels.Places.isEmpty() &&
               window.Pixels(pixels.Places) == pixels.Colours;
    };
    if (!WaitFor(shown)) {
        out << "the panel did not come up\n";
        return 1;
    }
    QThread::msleep(1000);
    const Cast cast{panel.ProcessId(), ChildrenOfParent(panel.ProcessId())};
    std::vector<Call> calls;
    for (int i = 0; i < kCalls + kWarmUp; ++i) {
        const Call call = Hide(keys, window, pixels) ? OneCall(keys, window, pixels, cast) : Call{-1, {}, {}};
        if (call.Ms < 0) {
            out << "call " << i + 1 << " had no effect\n";
            return 1;
        }
        if (i >= kWarmUp)
            calls.push_back(call);
    }
    std::sort(calls.begin(), calls.end(), [](const Call& a, const Call& b) { return a.Ms < b.Ms; });
    const Call& median = calls[calls.size() / 2];
    out << QStringLiteral("hotkey to painted panel of %1 x %2 pixels, %3 calls: median %4 ms, worst %5 ms\n")
               .arg(pixels.Size.width())
               .arg(pixels.Size.height())
               .arg(kCalls)
               .arg(median.Ms, 0, 'f', 2)
               .arg(calls.back().Ms, 0, 'f', 2);
    PrintCall(out, QStringLiteral("median"), median);
    for (auto call = calls.rbegin(); call != calls.rbegin() + kSlowest; ++call)
        PrintCall(out, QStringLiteral("slow"), *call);
    return 0;
}
