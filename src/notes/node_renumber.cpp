#include "notes/node_operations.h"
#include "notes/node_properties.h"

#include <QHash>

namespace paneda {

std::vector<NodeOperations::LevelEntry> NodeOperations::ListedLevel(const Goal& goal, const Placed& placed,
                                                                    int newRow) const {
    QHash<QString, QString> sorts;
    for (qsizetype i = 0; i < placed.Scan.Folders.size(); ++i)
        sorts.insert(placed.Scan.Folders[i], placed.Scan.Sorts[i]);
    const int oldRow = goal.Source == &tree_ ? OldRow(*goal.Source, newRow) : -1;
    std::vector<LevelEntry> level;
    for (const TreeNode& node : tree_.Nodes()) {
        if (node.RelativePath != goal.Place.RelativePath || node.RowIndex == oldRow)
            continue;
        const bool isThere = node.RowIndex == newRow || sorts.contains(node.Folder);
        level.push_back({node.Folder, sorts.value(node.Folder), node.RowIndex, !isThere});
    }
    return level;
}

std::vector<NodeOperations::LevelEntry> NodeOperations::WholeLevel(const Goal& goal, const Placed& placed,
                                                                   int newRow) const {
    QHash<QString, int> rows;
    for (const TreeNode& node : tree_.Nodes()) {
        if (node.RelativePath == goal.Place.RelativePath)
            rows.insert(node.Folder, node.RowIndex);
    }
    const LevelEntry added{placed.Node.Folder, {}, newRow, false};
    std::vector<LevelEntry> level;
    bool isIn = false;
    for (const std::size_t i : NodesInOrder(placed.Scan)) {
        const QString& folder = placed.Scan.Folders[qsizetype(i)];
        const bool isTarget = folder == goal.TargetFolder && goal.Position != NodePosition::Child;
        if (isTarget && goal.Position == NodePosition::Above)
            level.push_back(added);
        level.push_back({folder, placed.Scan.Sorts[qsizetype(i)], rows.value(folder, -1), false});
        if (isTarget && goal.Position == NodePosition::Below)
            level.push_back(added);
        isIn = isIn || isTarget;
    }
    if (!isIn)
        level.push_back(added);
    return level;
}

FileResult NodeOperations::Renumber(const QString& levelFolder, const std::vector<LevelEntry>& level,
                                    int newRow) {
    const QStringList even = EvenSorts(level.size());
    QStringList folders;
    QStringList current;
    QStringList wanted;
    QHash<int, QString> byRow;
    std::size_t own = 0;
    for (std::size_t i = 0; i < level.size(); ++i) {
        byRow.insert(level[i].Row, even[qsizetype(i)]);
        if (level[i].Row == newRow) {
            own = i;
        } else if (!level[i].Gone) {
            folders.append(level[i].Folder);
            current.append(level[i].Sort);
            wanted.append(even[qsizetype(i)]);
        }
    }
    std::vector<SortWrite> writes = PlanRenumber(current, wanted);
    // The new one is not yet among those where it belongs, so it comes last.
    writes.push_back({std::size_t(folders.size()), even[qsizetype(own)]});
    folders.append(level[own].Folder);
    for (const SortWrite& write : writes) {
        const QString folder = levelFolder + u'/' + folders[qsizetype(write.Index)];
        if (const FileResult written = WriteSort(folder, write.Sort); !written)
            return written;
    }
    tree_.ChangeSorts(byRow);
    return {};
}

} // namespace paneda
