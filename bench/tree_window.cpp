// How long the window of a tree takes: from nothing to the painted rows, against a bare walk over the files
// of the nodes; to scroll and paint; to add a node and have it painted; to find. And what a row takes of
// memory beside its node. Prints a table; judges nothing.
//
// usage: bench_tree_window [FOLDER]   the trees are made below FOLDER, else in the folder for temporary files

#include "made_tree.h"
#include "notes/tree_search.h"
#include "notes/tree_store.h"
#include "ui/common/dtVisualScrollBar.h"
#include "ui/notes/tree_actions.h"
#include "ui/notes/ucTree.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <malloc.h>

using namespace paneda;

namespace {

class NoPrompts : public Prompts {
public:
    void Notice(const QString& text, const QString&) override { qFatal("%s", qPrintable(text)); }
    bool Confirm(const QString&, const QString&) override { return true; }
    QString ChooseFile(const QString&, const QString&) override { return {}; }
};

class NoOpener : public Opener {
public:
    void Open(const LaunchRequest&, const LaunchPaths&) override {}
};

class NoVolumes : public Volumes {
public:
    void Refresh(DriveMap& map) override { map.UseMountPoints({}); }
    void Watch(std::function<void()>) override {}
};

class NoIcons : public FileIcons {
public:
    QImage IconOf(const QString&, const LaunchPaths&, const IconSize&) override { return {}; }
    QString TypeNameOf(const QString&) override { return {}; }
};

// Answers at once.
class QuickDialogs : public NodeDialogs {
public:
    std::optional<PendingNode> Ask(const NodeQuestion& question) override {
        return PendingNode{QStringLiteral("New"), {}, question.Position, {}, question.Type, {}};
    }
    void ShowTreeList(QWidget&, const QPoint&) override {}
    void FetchFavicon(QWidget&, const QString&, const DiskPath&) override {}
};

struct Bench {
    explicit Bench(const QString& appFolder) {
        State.AppFolder = appFolder;
        State.Drives.UseMountPoints({});
        State.AppPath = State.Drives.ToStored(appFolder);
        State.RecentChangeIndicator = 30;
        Desk.Look = LoadTreeLook({});
        Desk.MoveChanged = [] {};
        QDir().mkpath(appFolder + QStringLiteral("/Setting2"));
        QFile file(TreeIniFile(appFolder, QStringLiteral("Tree")));
        if (!file.open(QIODevice::WriteOnly) || file.write("[Properties]\r\nPath=Data\\Tree\r\n") < 0)
            qFatal("Cannot write %s", qPrintable(file.fileName()));
    }

    QString Content() const { return State.AppFolder + QStringLiteral("/Data/Tree"); }

    AppState State;
    NoPrompts Prompts;
    NoOpener Opener;
    NoVolumes Volumes;
    NoIcons Icons;
    QuickDialogs Dialogs;
    TreeDesk Desk{State, {Prompts, Icons, Opener, Volumes, &Dialogs}};
};

// Until what is read on other threads has come.
void Settle() {
    for (int i = 0; i < 50; ++i) {
        QCoreApplication::processEvents();
        struct timespec nap {
            0, 2'000'000
        };
        nanosleep(&nap, nullptr);
    }
}

size_t HeapInUse() {
    malloc_trim(0);
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::unique_ptr<ucTree> ShownTree(Bench& bench) {
    auto tree = std::make_unique<ucTree>(bench.Desk, 1);
    constexpr int kWidth = 300;
    constexpr int kHeight = 900; // 50 rows
    tree->resize(kWidth, kHeight);
    tree->show();
    QCoreApplication::processEvents();
    return tree;
}

double BytesBesideNodes(Bench& bench, int count) {
    const size_t empty = HeapInUse();
    size_t nodes = 0;
    {
        TreeModel model(bench.State.AppPath);
        model.Open(QStringLiteral("Tree"), ReadTreeSettings(bench.State, QStringLiteral("Tree")), 1);
        nodes = HeapInUse() - empty;
    }
    const auto tree = ShownTree(bench);
    Settle();
    const size_t before = HeapInUse();
    tree->SetTreePath(QStringLiteral("Tree"));
    Settle();
    return (double(HeapInUse()) - double(before) - double(nodes)) / count;
}

void MeasureScroll(ucTree& tree) {
    auto* bar = tree.findChild<dtVisualScrollBar*>();
    std::vector<double> paints;
    const int steps = 400;
    for (int i = 0; i < steps; ++i) {
        // Further than a screen each time, so that every row is new.
        const int value = int(qint64(bar->Max()) * i / steps);
        paints.push_back(TimeOf([&] {
            bar->SetValue(value);
            tree.repaint();
        }));
    }
    std::sort(paints.begin(), paints.end());
    std::printf(" %9.2f %9.2f", paints[paints.size() / 2], paints[paints.size() * 99 / 100]);
    for (auto& paint : paints)
        paint = 0;
    for (int i = 0; i < steps; ++i)
        paints[std::size_t(i)] = TimeOf([&] {
            bar->SetValue(bar->Value() - TreeModel::RowHeight);
            tree.repaint();
        });
    std::printf(" %9.2f", Median(paints));
}

void Measure(const QString& below, int count) {
    const QTemporaryDir folder(below + QStringLiteral("/bench-tree-window-XXXXXX"));
    Bench bench(folder.path());
    MakeTree(bench.Content(), count, true);
    const double walk = MedianOf([&] { Walk(bench.Content()); });
    std::vector<double> opens;
    for (int run = 0; run < kRuns; ++run) {
        const auto tree = ShownTree(bench);
        opens.push_back(TimeOf([&] {
            tree->SetTreePath(QStringLiteral("Tree"));
            tree->repaint();
        }));
    }
    TreeModel model(bench.State.AppPath);
    const TreeSettings settings = ReadTreeSettings(bench.State, QStringLiteral("Tree"));
    const double load = MedianOf([&] { model.Open(QStringLiteral("Tree"), settings, 1); });
    const double bytes = BytesBesideNodes(bench, count);
    const auto tree = ShownTree(bench);
    tree->SetTreePath(QStringLiteral("Tree"));
    std::printf("%8d %9.1f %9.1f %9.1f %9.2f %9.0f", count, walk, load, Median(opens), Median(opens) / walk,
                bytes);
    MeasureScroll(*tree);
    std::vector<double> adds;
    for (int run = 0; run < kRuns; ++run) {
        const int row = tree->Model().Nodes()[tree->Model().Nodes().size() / 2].RowIndex;
        adds.push_back(TimeOf([&] {
            tree->Actions().Insert(row, {});
            tree->repaint();
        }));
    }
    TreeIndex index;
    const double look = TimeOf([&] { index = ReadTreeIndex(bench.Content(), bench.State.AppPath); });
    std::size_t hits = 0;
    const double find = MedianOf([&] { hits = FindInTree(index, QStringLiteral("number 9")).size(); });
    if (hits == 0)
        qFatal("Nothing was found.");
    std::printf(" %9.1f %9.1f %9.2f\n", Median(adds), look, find);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QString below = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath();
    std::printf(
        "Medians of %d runs, in ms. page: scroll by more than a page and paint, p99: the slowest but for\n"
        "one in a hundred; line: scroll by a row; bytes: of memory for a row, beside its node\n",
        kRuns);
    std::printf("%8s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s\n", "rows", "walk", "load", "open",
                "open/walk", "bytes", "page", "p99", "line", "add", "1st look", "find");
    for (const int count : {1'000, 5'555, 10'000})
        Measure(below, count);
    return 0;
}
