// Time from the start of the process to the first painted frame: a bare Qt program that shows one picture of
// the panel's size (the floor), the panel with a valid cache, the panel without. Seen from outside, by the
// pixels in the window. Needs an X server with a window manager (tools/with-desktop).
//
// usage: bench_start PANEDA FLOOR [RATIO]   (an installed program over its store, the floor program, device
// pixels for each pixel of the layout)

#include "prepared_panel.h"
#include "x_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTextStream>
#include <QThread>

#include <vector>

namespace {

constexpr int kRuns = 25;
constexpr int kGiveUp = 20'000;   // ms
constexpr int kFirstStart = 3000; // ms

struct Sample {
    double Milliseconds = 0;
    double MemoryKb = 0; // proportional set size, 300 ms after the frame
};

struct Result {
    double Milliseconds = 0;
    double MemoryKb = 0;
};

double MemoryOf(qint64 processId) {
    QFile file(QStringLiteral("/proc/%1/smaps_rollup").arg(processId));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toDouble();
    }
    return 0;
}

// Starts a program, waits until the pixels at these places are the wanted ones, ends it.
Sample Measure(const QString& program, const QStringList& arguments, const QList<QPoint>& places,
               const QList<QRgb>& wanted, int giveUp = kGiveUp) {
    paneda::bench::XWindow window;
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    process.waitForStarted();
    bool found = false;
    Sample sample;
    while (timer.elapsed() < giveUp) {
        found = found || window.Find(process.processId());
        if (found && window.Pixels(places) == wanted)
            break;
        QThread::usleep(200);
    }
    sample.Milliseconds = double(timer.nsecsElapsed()) / 1e6;
    QThread::msleep(300);
    sample.MemoryKb = MemoryOf(process.processId());
    process.terminate();
    process.waitForFinished();
    return sample;
}

Result Summarise(const std::vector<Sample>& samples) {
    std::vector<double> times;
    std::vector<double> memory;
    for (const Sample& sample : samples) {
        times.push_back(sample.Milliseconds);
        memory.push_back(sample.MemoryKb);
    }
    return {paneda::bench::Median(times), paneda::bench::Median(memory)};
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 3 && arguments.size() != 4) {
        out << "usage: bench_start PANEDA FLOOR [RATIO]\n";
        return 2;
    }
    const QString ratio = arguments.value(3, QStringLiteral("1"));
    qputenv("QT_SCALE_FACTOR", ratio.toLatin1());
    const QString paneda = arguments[1];
    const QString cache = QFileInfo(paneda).absolutePath() + QStringLiteral("/Cache");
    const QString picture = paneda::bench::PanelPicture(paneda, ratio);
    // The first start makes the store and the pictures.
    Measure(paneda, {}, {QPoint(0, 0)}, {0xFFFFFFFF}, kFirstStart);
    const paneda::bench::PanelPixels pixels = paneda::bench::ReadPanelPixels(picture);
    if (pixels.Size.isEmpty()) {
        out << "no picture was made\n";
        return 1;
    }
    std::vector<Sample> floor;
    std::vector<Sample> cached;
    std::vector<Sample> uncached;
    for (int i = 0; i < kRuns; ++i) {
        floor.push_back(Measure(arguments[2], {picture}, pixels.Places, pixels.Colours));
        cached.push_back(Measure(paneda, {}, pixels.Places, pixels.Colours));
    }
    for (int i = 0; i < kRuns; ++i) {
        QFile::remove(cache + QStringLiteral("/cache"));
        uncached.push_back(Measure(paneda, {}, pixels.Places, pixels.Colours));
    }
    const Result base = Summarise(floor);
    const auto print = [&](const char* name, const Result& result) {
        out << qSetFieldWidth(10) << name << qSetFieldWidth(0)
            << QStringLiteral("  %1 ms  %2 of the floor   %3 KB  %4 of the floor\n")
                   .arg(result.Milliseconds, 8, 'f', 1)
                   .arg(result.Milliseconds / base.Milliseconds, 5, 'f', 2)
                   .arg(result.MemoryKb, 8, 'f', 0)
                   .arg(result.MemoryKb / base.MemoryKb, 5, 'f', 2);
    };
    out << "medians of " << kRuns << " starts at ratio " << ratio << ", window of " << pixels.Size.width()
        << " x " << pixels.Size.height() << " pixels\n";
    print("floor", base);
    print("cached", Summarise(cached));
    print("uncached", Summarise(uncached));
    return 0;
}
