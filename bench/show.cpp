// Time from the press of the hotkey, as a key event of the X server, to the first painted frame of the warm
// panel. Seen from outside, by the pixels in the window. Needs an X server with a window manager
// (tools/with-desktop).
//
// usage: bench_show PANEDA   (an installed program over its store, whose hotkey becomes Ctrl+Alt+K)

#include "prepared_panel.h"
#include "x_keys.h"
#include "x_window.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>
#include <QThread>

#include <algorithm>
#include <functional>

namespace {

using namespace paneda::bench;

constexpr int kCalls = 100;
constexpr int kWarmUp = 3;
constexpr int kGiveUp = 5000; // ms
constexpr int kSettle = 80;   // ms, for the window manager to give the focus

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

// Milliseconds from the press to the frame; below 0 if it did not come.
double OneCall(XKeys& keys, const XWindow& window, const PanelPixels& pixels) {
    QElapsedTimer timer;
    keys.HoldModifiers();
    timer.start();
    keys.PressK();
    while (window.Pixels(pixels.Places) != pixels.Colours) {
        if (timer.elapsed() > kGiveUp)
            return -1;
    }
    const double time = double(timer.nsecsElapsed()) / 1e6;
    keys.ReleaseAll();
    QThread::msleep(kSettle);
    return time;
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
    std::vector<double> times;
    for (int i = 0; i < kCalls + kWarmUp; ++i) {
        const double time = Hide(keys, window, pixels) ? OneCall(keys, window, pixels) : -1;
        if (time < 0) {
            out << "call " << i + 1 << " had no effect\n";
            return 1;
        }
        if (i >= kWarmUp)
            times.push_back(time);
    }
    out << QStringLiteral("hotkey to painted panel of %1 x %2 pixels, %3 calls: median %4 ms, worst %5 ms\n")
               .arg(pixels.Size.width())
               .arg(pixels.Size.height())
               .arg(kCalls)
               .arg(Median(times), 0, 'f', 2)
               .arg(*std::max_element(times.begin(), times.end()), 0, 'f', 2);
    return 0;
}
