// How long a scan of the store takes, against a plain walk over the same folders and against the cached
// start. Prints a table; judges nothing.

#include "core/store/catalogue_cache.h"
#include "core/store/catalogue_loader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <vector>

using namespace paneda;

namespace {

constexpr int kButtonsPerGroup = 10;
constexpr int kGroupsPerCategory = 10;
constexpr int kRuns = 21;

void MakeStore(const QString& folder, int buttons) {
    for (int i = 0; i < buttons; ++i) {
        const int group = i / kButtonsPerGroup;
        const int category = group / kGroupsPerCategory;
        const QString path = QStringLiteral("%1/Setting/[%2] Category %2/[%3] Group %3")
                                 .arg(folder)
                                 .arg(category + 1, 3, 10, QLatin1Char('0'))
                                 .arg(group % kGroupsPerCategory + 1, 3, 10, QLatin1Char('0'));
        QDir().mkpath(path);
        QFile file(QStringLiteral("%1/[%2] Program number %3 [11113001100].pnd")
                       .arg(path)
                       .arg(i % kButtonsPerGroup + 1, 3, 10, QLatin1Char('0'))
                       .arg(i));
        if (!file.open(QIODevice::WriteOnly) || file.write("[Properties]\r\nTarget=C:\\x.exe\r\n") < 0)
            qFatal("Cannot write %s", qPrintable(file.fileName()));
    }
}

// Milliseconds.
template <class Function>
double TimeOf(Function function) {
    const auto begin = std::chrono::steady_clock::now();
    function();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

struct Times {
    double Walk = 0;
    double Scan = 0;
    double Cached = 0;
};

Times Measure(int buttons) {
    const QTemporaryDir folder;
    MakeStore(folder.path(), buttons);
    const ScanOptions options{QStringLiteral("E:\\Paneda"), folder.path(), {}, false};
    CacheRecord record;
    record.Catalogue = LoadCatalogue(options);
    const QString cache = folder.filePath(QStringLiteral("cache"));
    if (const FileResult saved = SaveCache(cache, record); !saved)
        qFatal("%s", qPrintable(saved.error().Text()));

    std::vector<double> walks;
    std::vector<double> scans;
    std::vector<double> loads;
    std::size_t found = 0;
    // In turns, so that a slow moment of the machine falls on all three.
    for (int run = 0; run < kRuns; ++run) {
        walks.push_back(TimeOf([&] {
            for (const auto& entry :
                 std::filesystem::recursive_directory_iterator(folder.path().toStdString()))
                found += entry.path().native().size();
        }));
        // What was loaded is freed outside the measure.
        CatalogueList scanned;
        scans.push_back(TimeOf([&] { scanned = LoadCatalogue(options); }));
        std::optional<CacheRecord> cached;
        loads.push_back(TimeOf([&] { cached = LoadCache(cache, {}, options.AppPath); }));
        if (!cached || cached->Catalogue != scanned)
            qFatal("The cache does not hold what the scan found.");
    }
    if (found == 0)
        qFatal("Nothing was found.");
    return {Median(walks), Median(scans), Median(loads)};
}

} // namespace

int main() {
    std::printf("Medians of %d runs, in ms\n", kRuns);
    std::printf("%8s %9s %9s %9s %10s %11s %12s\n", "buttons", "walk", "scan", "cached", "scan/walk",
                "scan/cached", "scan growth");
    double before = 0;
    for (const int buttons : {100, 1'000, 10'000}) {
        const Times times = Measure(buttons);
        std::printf("%8d %9.3f %9.3f %9.3f %10.2f %11.1f", buttons, times.Walk, times.Scan, times.Cached,
                    times.Scan / times.Walk, times.Scan / times.Cached);
        before > 0 ? std::printf(" %11.1fx\n", times.Scan / before) : std::printf("\n");
        before = times.Scan;
    }
    return 0;
}
