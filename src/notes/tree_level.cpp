#include "notes/tree_level.h"

#include "core/store/entries.h"
#include "core/text/text_rules.h"
#include "notes/node_properties.h"
#include "notes/tree_store.h"

#include <QThread>

#include <algorithm>
#include <functional>
#include <memory>

namespace paneda {

namespace {

// Names with a longer number are not ours, and counting on from them would end in no file name.
constexpr double kHighestFolder = 999'999'999'999;

// Calls `read` for all indices below `count`, those of a large level on several threads: what takes time is
// waiting for the disk, and looking into one small file after the other.
void ReadAll(std::size_t count, const std::function<void(std::size_t)>& read) {
    constexpr std::size_t kMostThreads = 4;
    constexpr std::size_t kWorthAThread = 200;
    const std::size_t parts = std::clamp<std::size_t>(count / kWorthAThread, 1, kMostThreads);
    const auto readPart = [&](std::size_t part) {
        for (std::size_t i = count * part / parts; i < count * (part + 1) / parts; ++i)
            read(i);
    };
    std::vector<std::unique_ptr<QThread>> threads;
    for (std::size_t part = 1; part < parts; ++part) {
        threads.emplace_back(QThread::create(readPart, part));
        threads.back()->start();
    }
    readPart(0);
    for (const auto& thread : threads)
        thread->wait();
}

} // namespace

DiskPath LevelPlace::Folder() const {
    return LevelFolder(ContentFolder, RelativePath);
}

LevelPlace ChildPlace(const QString& contentFolder, const TreeNode& node) {
    return {contentFolder, node.RelativePath + node.Folder + u'\\', node.Level + 1,
            node.PathLabel + QStringLiteral(" \\ ") + node.Name};
}

LevelPlace PlaceOf(const QString& contentFolder, const TreeNode& node) {
    return {contentFolder, node.RelativePath, node.Level, node.PathLabel};
}

TreeNodeList LoadLevel(const LevelPlace& place, const QString& appPath) {
    const DiskPath folder = place.Folder();
    const QStringList names = ListNodeFolders(folder);
    TreeNodeList nodes(std::size_t(names.size()));
    ReadAll(nodes.size(), [&](std::size_t i) {
        TreeNode& node = nodes[i];
        const DiskPath nodeFolder = folder / names[qsizetype(i)];
        ReadNodeKeys(ReadNodeIni(nodeFolder), appPath, node);
        if (node.Name.isEmpty())
            return;
        node.Folder = names[qsizetype(i)];
        node.RelativePath = place.RelativePath;
        node.Level = place.Level;
        node.PathLabel = place.PathLabel;
        node.ExpandState = HasSubfolder(nodeFolder) ? BranchState::Collapsed : BranchState::Leaf;
    });
    std::erase_if(nodes, [](const TreeNode& node) { return node.Name.isEmpty(); });
    SortEntries(nodes, {&TreeNode::Sort}, SortOrder::Ascending);
    return nodes;
}

SiblingScan ScanSiblings(const DiskPath& levelFolder) {
    SiblingScan scan;
    scan.Folders = ListNodeFolders(levelFolder);
    const std::size_t count = std::size_t(scan.Folders.size());
    struct Found {
        QString Sort;
        bool IsNode = false;
    };
    std::vector<Found> found(count);
    ReadAll(count, [&](std::size_t i) {
        const IniText properties = ReadNodeIni(levelFolder / scan.Folders[qsizetype(i)]);
        found[i] = {ReadSort(properties),
                    !properties.Value(node_key::kProperties, node_key::kName).isEmpty()};
    });
    for (const Found& folder : found) {
        scan.Sorts.append(folder.Sort);
        scan.IsNode.push_back(folder.IsNode);
    }
    for (const QString& name : std::as_const(scan.Folders)) {
        const double number = LeadingNumber(name);
        if (number > scan.HighestNumber && number < kHighestFolder)
            scan.HighestNumber = number;
    }
    return scan;
}

std::vector<std::size_t> NodesInOrder(const SiblingScan& scan) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < scan.IsNode.size(); ++i) {
        if (scan.IsNode[i])
            order.push_back(i);
    }
    std::stable_sort(order.begin(), order.end(), [&scan](std::size_t a, std::size_t b) {
        return CompareText(scan.Sorts[qsizetype(a)], scan.Sorts[qsizetype(b)]) < 0;
    });
    return order;
}

} // namespace paneda
