#include "notes/tree_level.h"

#include "core/store/entries.h"
#include "core/text/text_rules.h"
#include "notes/node_properties.h"
#include "notes/tree_store.h"

namespace paneda {

namespace {

// Names with a longer number are not ours, and counting on from them would end in no file name.
constexpr double kHighestFolder = 999'999'999'999;

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
    TreeNodeList nodes;
    const DiskPath folder = place.Folder();
    TreeNode node;
    node.RelativePath = place.RelativePath;
    node.Level = place.Level;
    node.PathLabel = place.PathLabel;
    for (const QString& name : ListNodeFolders(folder)) {
        const DiskPath nodeFolder = folder / name;
        ReadNodeKeys(ReadNodeIni(nodeFolder), appPath, node);
        if (node.Name.isEmpty())
            continue;
        node.Folder = name;
        node.ExpandState = HasSubfolder(nodeFolder) ? BranchState::Collapsed : BranchState::Leaf;
        nodes.push_back(node);
    }
    SortEntries(nodes, {&TreeNode::Sort}, SortOrder::Ascending);
    return nodes;
}

SiblingScan ScanSiblings(const DiskPath& levelFolder) {
    SiblingScan scan;
    scan.Folders = ListNodeFolders(levelFolder);
    for (const QString& name : scan.Folders) {
        const IniText properties = ReadNodeIni(levelFolder / name);
        scan.Sorts.append(ReadSort(properties));
        scan.IsNode.push_back(!properties.Value(node_key::kProperties, node_key::kName).isEmpty());
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
