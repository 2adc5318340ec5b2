#include "notes/node_operations.h"
#include "notes/node_properties.h"

#include <QHash>

namespace paneda {

std::vector<NodeOperations::LevelEntry> NodeOperations::ListedLevel(const Goal& goal, const Placed& placed,
                                                                    int newRow) const {
    QHash<QString, QString> sorts;
    for (qsizetype i = 0; i < placed.Scan.Folders.size(); ++i)
        sorts.insert(placed.Scan.Folders[i], placed.Scan.Sorts[i]);
    std::vector<LevelEntry> level;
    for (const TreeNode& node : tree_.Nodes()) {
        // A second row of the same folder is the one that the node leaves.
        const bool isOld = node.RowIndex != newRow && node.Folder == placed.Node.Folder;
        if (node.RelativePath != goal.Place.RelativePath || isOld)
            continue;
        const bool isThere = node.RowIndex == newRow || sorts.contains(node.Folder);
        level.push_back({node.Folder, sorts.value(node.Folder), !isThere});
    }
    return level;
}

std::vector<NodeOperations::LevelEntry> NodeOperations::WholeLevel(const Goal& goal, const Placed& placed) {
    const LevelEntry added{placed.Node.Folder, {}, false};
    std::vector<LevelEntry> level;
    bool isIn = false;
    for (const std::size_t i : NodesInOrder(placed.Scan)) {
        const QString& folder = placed.Scan.Folders[qsizetype(i)];
        const bool isTarget = folder == goal.TargetFolder && goal.Position != NodePosition::Child;
        if (isTarget && goal.Position == NodePosition::Above)
            level.push_back(added);
        level.push_back({folder, placed.Scan.Sorts[qsizetype(i)], false});
        if (isTarget && goal.Position == NodePosition::Below)
            level.push_back(added);
        isIn = isIn || isTarget;
    }
    if (!isIn)
        level.push_back(added);
    return level;
}

FileResult NodeOperations::Renumber(const Goal& goal, const std::vector<LevelEntry>& level,
                                    const QString& newFolder) {
    const QStringList even = EvenSorts(level.size());
    QStringList folders;
    QStringList current;
    QStringList wanted;
    QHash<QString, QString> byFolder;
    for (std::size_t i = 0; i < level.size(); ++i) {
        byFolder.insert(level[i].Folder, even[qsizetype(i)]);
        if (level[i].Folder != newFolder && !level[i].Gone) {
            folders.append(level[i].Folder);
            current.append(level[i].Sort);
            wanted.append(even[qsizetype(i)]);
        }
    }
    QStringList changed;
    QStringList sorts;
    for (const SortWrite& write : PlanRenumber(current, wanted)) {
        changed.append(folders[qsizetype(write.Index)]);
        sorts.append(write.Sort);
    }
    // The new one is not yet among those where it belongs, so it comes last.
    changed.append(newFolder);
    sorts.append(byFolder[newFolder]);
    FileResult written;
    RunWork([&] { written = WriteSorts(goal.Place.Folder(), changed, sorts); });
    if (written)
        tree_.ChangeSorts(goal.Place.RelativePath, byFolder);
    return written;
}

} // namespace paneda
