#include "notes/tree_model.h"

#include "core/text/text_rules.h"

#include <QFileInfo>

#include <algorithm>

namespace paneda {

void TreeModel::Open(const QString& treeName, const TreeSettings& settings, int treeIndex) {
    treeName_ = treeName;
    settings_ = settings;
    treeIndex_ = treeIndex;
    LoadTree();
}

QString TreeModel::CanvasTip() const {
    return isEmpty_ ? QStringLiteral("Right click to add first note in this tree, subsequents "
                                     "notes/shortcuts/favorites can be added by right clicking any node in "
                                     "this tree.")
                    : QString();
}

int TreeModel::PositionOf(int row) const {
    const auto found = std::find_if(nodes_.begin(), nodes_.end(),
                                    [row](const TreeNode& node) { return node.RowIndex == row; });
    return found == nodes_.end() ? -1 : int(found - nodes_.begin());
}

int TreeModel::RowOf(const QString& relativePath, const QString& folder, int exceptRow) const {
    const auto found = std::find_if(nodes_.begin(), nodes_.end(), [&](const TreeNode& node) {
        return node.Folder == folder && node.RelativePath == relativePath && node.RowIndex != exceptRow;
    });
    return found == nodes_.end() ? -1 : found->RowIndex;
}

const TreeNode* TreeModel::Find(int row) const {
    const int position = PositionOf(row);
    return position < 0 ? nullptr : &nodes_[std::size_t(position)];
}

DiskPath TreeModel::NodeFolder(const TreeNode& node) const {
    return LevelFolder(settings_.ContentFolder, node.RelativePath) / node.Folder;
}

int TreeModel::LastTop() const {
    return RowTop(std::max(int(nodes_.size()) - 1, 0));
}

TreeNodeList TreeModel::ReadLevel(const LevelPlace& place) const {
    TreeNodeList nodes;
    const auto read = [&] { nodes = LoadLevel(place, appPath_); };
    if (work_)
        work_(read);
    else
        read();
    return nodes;
}

void TreeModel::LoadTree() {
    TreeNodeList nodes = ReadLevel({settings_.ContentFolder, QStringLiteral("\\"), 0, treeName_});
    freeRows_.clear();
    selectedRow_ = -1;
    nodes_ = std::move(nodes);
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        nodes_[i].RowIndex = int(i) + 1;
    isEmpty_ = nodes_.empty();
    Listener().TreeLoaded();
}

RefreshOutcome TreeModel::Refresh() {
    LoadTree();
    if (!nodes_.empty())
        return RefreshOutcome::Shown;
    const QString& folder = settings_.ContentFolder;
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? RefreshOutcome::OfferFirstNote
                                                          : RefreshOutcome::FolderNotFound;
}

QString TreeModel::NotFoundText() const {
    return QStringLiteral("Folder  '") + settings_.ShownFolder + QStringLiteral("'  Not Found!");
}

int TreeModel::TakeRow(int rowsInUse) {
    // Without free ones, the rows in use are all from 1 on.
    if (freeRows_.empty())
        return rowsInUse + 1;
    const int row = freeRows_.back();
    freeRows_.pop_back();
    return row;
}

int TreeModel::BehindBranch(int position) const {
    int end = position + 1;
    while (end < int(nodes_.size()) && nodes_[std::size_t(end)].Level > nodes_[std::size_t(position)].Level)
        ++end;
    return end;
}

void TreeModel::SetState(int position, BranchState state) {
    nodes_[std::size_t(position)].ExpandState = state;
    Listener().RowChanged(nodes_[std::size_t(position)].RowIndex);
}

void TreeModel::ExpandNode(int row) {
    const int position = PositionOf(row);
    if (position < 0 || nodes_[std::size_t(position)].ExpandState == BranchState::Expanded)
        return;
    TreeNodeList children = ReadLevel(ChildPlace(settings_.ContentFolder, nodes_[std::size_t(position)]));
    int rowsInUse = int(nodes_.size());
    for (TreeNode& child : children)
        child.RowIndex = TakeRow(rowsInUse++);
    nodes_.insert(nodes_.begin() + position + 1, std::make_move_iterator(children.begin()),
                  std::make_move_iterator(children.end()));
    SetState(position, BranchState::Expanded);
    if (!children.empty())
        Listener().RowsAdded(position + 1, int(children.size()));
}

void TreeModel::RemoveRange(int begin, int end) {
    if (begin == end)
        return;
    std::vector<int> rows;
    for (int i = begin; i < end; ++i) {
        rows.push_back(nodes_[std::size_t(i)].RowIndex);
        if (rows.back() == selectedRow_)
            selectedRow_ = -1;
    }
    freeRows_.insert(freeRows_.end(), rows.begin(), rows.end());
    nodes_.erase(nodes_.begin() + begin, nodes_.begin() + end);
    isEmpty_ = nodes_.empty();
    Listener().RowsRemoved(begin, rows);
}

void TreeModel::CollapseNode(int row) {
    const int position = PositionOf(row);
    if (position < 0)
        return;
    RemoveRange(position + 1, BehindBranch(position));
    SetState(position, BranchState::Collapsed);
}

void TreeModel::ToggleNode(int row) {
    const TreeNode* node = Find(row);
    if (!node || node->ExpandState == BranchState::Leaf)
        return;
    if (node->ExpandState == BranchState::Collapsed)
        ExpandNode(row);
    else
        CollapseNode(row);
}

int TreeModel::Reveal(const QString& relativePath, const QString& folder) {
    const QStringList parents = relativePath.split(u'\\', Qt::SkipEmptyParts);
    QString path = QStringLiteral("\\");
    for (const QString& parent : parents) {
        ExpandNode(RowOf(path, parent));
        path += parent + u'\\';
    }
    return RowOf(relativePath, folder);
}

int TreeModel::EnterNode(TreeNode node, int targetRow, NodePosition position) {
    const int target = PositionOf(targetRow);
    int at = 0;
    LevelPlace place{settings_.ContentFolder, QStringLiteral("\\"), 0, treeName_};
    if (target >= 0) {
        const TreeNode& shown = nodes_[std::size_t(target)];
        const bool isChild = position == NodePosition::Child;
        place =
            isChild ? ChildPlace(settings_.ContentFolder, shown) : PlaceOf(settings_.ContentFolder, shown);
        at = position == NodePosition::Above ? target : BehindBranch(target);
        if (isChild && shown.ExpandState == BranchState::Leaf)
            SetState(target, BranchState::Expanded);
    }
    node.RelativePath = place.RelativePath;
    node.Level = place.Level;
    node.PathLabel = place.PathLabel;
    node.RowIndex = TakeRow(int(nodes_.size()));
    const int row = node.RowIndex;
    nodes_.insert(nodes_.begin() + at, std::move(node));
    isEmpty_ = false;
    Listener().RowsAdded(at, 1);
    return row;
}

void TreeModel::RemoveNode(int row) {
    const int begin = PositionOf(row);
    if (begin < 0)
        return;
    const int level = nodes_[std::size_t(begin)].Level;
    RemoveRange(begin, BehindBranch(begin));
    const bool behindParent = begin > 0 && nodes_[std::size_t(begin) - 1].Level == level - 1;
    const bool hasSibling = begin < int(nodes_.size()) && nodes_[std::size_t(begin)].Level >= level;
    if (behindParent && !hasSibling)
        SetState(begin - 1, BranchState::Leaf);
}

void TreeModel::ChangeNode(int row, const TreeNode& changed) {
    const int position = PositionOf(row);
    if (position < 0)
        return;
    TreeNode& node = nodes_[std::size_t(position)];
    const QString labelBefore = ChildPlace({}, node).PathLabel;
    node.Name = changed.Name;
    node.Description = changed.Description;
    node.Type = changed.Type;
    node.LinkData = changed.LinkData;
    const QString label = ChildPlace({}, node).PathLabel;
    const int end = BehindBranch(position);
    for (int i = position + 1; i < end; ++i) {
        QString& below = nodes_[std::size_t(i)].PathLabel;
        below = label + below.sliced(labelBefore.size());
    }
    Listener().RowChanged(row);
}

int TreeModel::PositionOfParent(const QString& relativePath) const {
    const auto found = std::find_if(nodes_.begin(), nodes_.end(), [&](const TreeNode& node) {
        return ChildPlace({}, node).RelativePath == relativePath;
    });
    return found == nodes_.end() ? -1 : int(found - nodes_.begin());
}

void TreeModel::EnterInOrder(const TreeNode& node, const QString& relativePath) {
    const int parent = PositionOfParent(relativePath);
    const bool isTop = relativePath == u"\\";
    if (parent < 0 && !isTop)
        return;
    if (!isTop && nodes_[std::size_t(parent)].ExpandState != BranchState::Expanded) {
        SetState(parent, BranchState::Collapsed);
        return;
    }
    int first = -1;
    int before = -1;
    for (const TreeNode& sibling : nodes_) {
        if (sibling.RelativePath != relativePath)
            continue;
        first = first < 0 ? sibling.RowIndex : first;
        before = CompareText(sibling.Sort, node.Sort) <= 0 ? sibling.RowIndex : before;
    }
    if (before >= 0)
        EnterNode(node, before, NodePosition::Below);
    else if (first >= 0)
        EnterNode(node, first, NodePosition::Above);
    else
        EnterNode(node, isTop ? -1 : nodes_[std::size_t(parent)].RowIndex, NodePosition::Child);
}

void TreeModel::ChangeSorts(const QString& relativePath, const QHash<QString, QString>& sorts) {
    for (TreeNode& node : nodes_) {
        if (node.RelativePath == relativePath)
            node.Sort = sorts.value(node.Folder, node.Sort);
    }
}

} // namespace paneda
