// How long the operations on a tree take: loading against a plain walk that reads each node's file, and a
// renumbering against writing the same files over without any safety. Prints tables; judges nothing.
//
// usage: bench_tree [FOLDER]   the trees are made below FOLDER, else in the folder for temporary files

#include "core/disk/disk_entries.h"
#include "made_tree.h"
#include "notes/node_operations.h"
#include "notes/tree_search.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace paneda;

namespace {

class NoPrompts : public Prompts {
public:
    void Notice(const QString& text, const QString& title) override {
        qFatal("%s %s", qPrintable(title), qPrintable(text));
    }
    bool Confirm(const QString&, const QString&) override { return true; }
    QString ChooseFile(const QString&, const QString&) override { return {}; }
};

void ExpandAll(TreeModel& tree) {
    for (std::size_t i = 0; i < tree.Nodes().size(); ++i) {
        if (tree.Nodes()[i].ExpandState == BranchState::Collapsed)
            tree.ExpandNode(tree.Nodes()[i].RowIndex);
    }
}

// Writes are timed once each in turn: they change what they are measured on.
void MeasureChanges(TreeModel& tree) {
    NoPrompts prompts;
    NodeTransfer transfer;
    NodeServices services{prompts, {}, {}, {}};
    services.TreeOf = [&](int) { return &tree; };
    NodeOperations operations(tree, transfer, services);
    std::vector<double> adds;
    std::vector<double> moves;
    std::vector<double> deletes;
    for (int run = 0; run < kRuns; ++run) {
        const int middle = tree.Nodes()[tree.Nodes().size() / 2].RowIndex;
        transfer.Pending = PendingNode{QStringLiteral("New"), {}, NodePosition::Below, {}, {}, {}};
        int row = -1;
        adds.push_back(TimeOf([&] { row = operations.AddOrMoveNode(middle, NodeMode::Add); }));
        operations.StartMove(row);
        const int first = tree.Nodes()[1].RowIndex;
        moves.push_back(TimeOf([&] { row = operations.FinishMove(first, MoveChoice::Child); }));
        deletes.push_back(TimeOf([&] { operations.DeleteNode(row, DeleteMode::AskAndDelete); }));
    }
    std::printf(" %9.2f %9.2f %9.2f", Median(adds), Median(moves), Median(deletes));
}

// Writes the file of each node over, as a program would that takes no care of what a power failure leaves.
double TimeOfPlainWrites(const TreeModel& tree) {
    std::vector<std::pair<QString, QByteArray>> files;
    for (const TreeNode& node : tree.Nodes()) {
        QFile file((tree.NodeFolder(node) / QStringLiteral("Properties.ini")).Text());
        if (!file.open(QIODevice::ReadOnly))
            qFatal("Cannot read %s", qPrintable(file.fileName()));
        files.emplace_back(file.fileName(), file.readAll());
    }
    return TimeOf([&] {
        for (const auto& [path, bytes] : files) {
            QFile file(path);
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                qFatal("Cannot write %s", qPrintable(path));
        }
    });
}

// Writes out what making the tree has left in the system's caches, which the first flush would wait for.
void FlushTree(const TreeModel& tree) {
    std::vector<DiskPath> files;
    for (const TreeNode& node : tree.Nodes())
        files.push_back(tree.NodeFolder(node) / QStringLiteral("Properties.ini"));
    if (const FileResult flushed = FlushFilesToDisk(files); !flushed)
        qFatal("%s", qPrintable(flushed.error().Text()));
}

// Adds above the first node until there is no room left; the last add numbers the level again.
double MeasureRenumber(TreeModel& tree) {
    NoPrompts prompts;
    NodeTransfer transfer;
    NodeServices services{prompts, {}, {}, {}};
    NodeOperations operations(tree, transfer, services);
    transfer.Pending = PendingNode{QStringLiteral("First"), {}, NodePosition::Above, {}, {}, {}};
    double last = 0;
    for (QString sort = QStringLiteral("9"); tree.Nodes()[0].Sort < sort;) {
        sort = tree.Nodes()[0].Sort;
        last = TimeOf([&] { operations.AddOrMoveNode(tree.Nodes()[0].RowIndex, NodeMode::Add); });
    }
    return last;
}

void Measure(const QString& below, int count, bool flat) {
    const QTemporaryDir folder(below + QStringLiteral("/bench-tree-XXXXXX"));
    MakeTree(folder.path(), count, flat);
    TreeSettings settings;
    settings.ContentFolder = folder.path();
    TreeModel tree(QStringLiteral("E:\\Paneda"));
    const double walk = MedianOf([&] { Walk(folder.path()); });
    const double load = MedianOf([&] {
        tree.Open(QStringLiteral("Tree"), settings, 1);
        ExpandAll(tree);
    });
    if (int(tree.Nodes().size()) != count)
        qFatal("%d nodes were loaded.", int(tree.Nodes().size()));
    double toggle = 0;
    if (!flat) {
        const int row = tree.Nodes()[0].RowIndex;
        toggle = MedianOf([&] {
            tree.ToggleNode(row);
            tree.ToggleNode(row);
        });
    }
    std::printf("%8d %-7s %9.2f %9.2f %9.2f %9.2f", count, flat ? "one" : "many", walk, load, load / walk,
                toggle);
    MeasureChanges(tree);
    if (!flat) {
        std::printf("\n");
        return;
    }
    FlushTree(tree);
    const double renumber = MeasureRenumber(tree);
    const double plain = TimeOfPlainWrites(tree);
    std::printf(" %9.0f %9.0f %9.2f\n", renumber, plain, renumber / plain);
}

// Finding in a tree that is not expanded: the first look reads it, the others do not. Then a branch is
// deleted that holds all of its nodes.
void MeasureFind(const QString& below, int count) {
    const QTemporaryDir folder(below + QStringLiteral("/bench-tree-XXXXXX"));
    MakeTree(folder.path(), 1, true);
    MakeTree(folder.filePath(QStringLiteral("000001")), count, false);
    TreeSettings settings;
    settings.ContentFolder = folder.path();
    TreeModel tree(QStringLiteral("E:\\Paneda"));
    tree.Open(QStringLiteral("Tree"), settings, 1);
    TreeIndex index;
    const double read = MedianOf([&] { index = ReadTreeIndex(folder.path(), tree.AppPath()); });
    std::size_t hits = 0;
    const double all = MedianOf([&] { hits = FindInTree(index, QStringLiteral("number NODE")).size(); });
    const double none = MedianOf([&] { hits -= FindInTree(index, QStringLiteral("nowhere")).size(); });
    if (int(hits) != count + 1)
        qFatal("%d nodes were found.", int(hits));
    NoPrompts prompts;
    NodeTransfer transfer;
    NodeOperations operations(tree, transfer, {prompts, {}, {}, {}});
    const double deletion = TimeOf([&] { operations.DeleteNode(1, DeleteMode::AskAndDelete); });
    if (!tree.Nodes().empty())
        qFatal("The branch is still there.");
    std::printf("%8d %9.2f %9.2f %9.2f %9.2f\n", count, read, all, none, deletion);
}

} // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QString below = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath();
    std::printf("Medians of %d runs, in ms; renumber once\n", kRuns);
    std::printf("%8s %9s %9s %9s %9s\n", "nodes", "read", "find all", "find none", "delete");
    for (const int count : {1'000, 5'000, 10'000})
        MeasureFind(below, count);
    std::printf("%8s %-7s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s\n", "nodes", "levels", "walk", "load",
                "load/walk", "toggle", "add", "move", "delete", "renumber", "plain", "ren/plain");
    for (const bool flat : {true, false}) {
        for (const int count : {1'000, 5'555, 10'000})
            Measure(below, count, flat);
    }
    return 0;
}
