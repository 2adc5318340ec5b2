#include "notes/node_operations.h"

#include "core/text/text_rules.h"
#include "notes/node_icon.h"
#include "notes/node_properties.h"
#include "notes/remark_file.h"

namespace paneda {

namespace {

void Note(std::vector<FileError>& failures, const FileResult& result) {
    if (!result)
        failures.push_back(result.error());
}

bool HasIcon(const QString& source) {
    return !source.isEmpty() && source != kKeepIcon;
}

} // namespace

void NodeOperations::CloseNote() const {
    if (services_.CloseNote)
        services_.CloseNote();
}

void NodeOperations::FetchFavicon(const TreeNode& node, const QString& folder) const {
    if (node.Type == kUrlNode && services_.FetchFavicon)
        services_.FetchFavicon(node.LinkData.Target, FaviconFile(folder));
}

void NodeOperations::Tell(const std::vector<FileError>& failures) const {
    if (!failures.empty())
        services_.Ask.Notice(FailureText(failures));
}

int NodeOperations::Stop(const FileError& failure) {
    Tell({failure});
    CloseNote();
    tree_.LoadTree();
    return -1;
}

NodeOperations::Goal NodeOperations::GoalOf(int targetRow, NodePosition position) const {
    Goal goal;
    const TreeNode* target = tree_.Find(targetRow);
    if (!target) {
        goal.Place = {tree_.TreePath(), QStringLiteral("\\"), 0, tree_.TreeName()};
        goal.TargetSort = FormatSort(0);
        return goal;
    }
    goal.Position = position;
    goal.TargetFolder = target->Folder;
    goal.TargetSort = target->Sort;
    goal.Place = position == NodePosition::Child ? ChildPlace(tree_.TreePath(), *target)
                                                 : PlaceOf(tree_.TreePath(), *target);
    return goal;
}

SortChoice NodeOperations::ChooseFor(const Goal& goal, const SiblingScan& scan) {
    // Somebody else may have moved the target since it was listed.
    const qsizetype target = scan.Folders.indexOf(goal.TargetFolder);
    const bool isSibling = goal.Position != NodePosition::Child && target >= 0;
    const QString base = isSibling ? scan.Sorts[target] : goal.TargetSort;
    return ChooseSort(goal.Position, base, NeighbourSort(goal.Position, base, scan.Sorts));
}

tl::expected<NodeOperations::Placed, FileError> NodeOperations::AddOnDisk(const Goal& goal,
                                                                          const PendingNode& pending) {
    const QString level = goal.Place.Folder();
    auto claimed = ClaimFolder(level, [](const QString& path) { return MakeNewFolder(path); });
    if (!claimed)
        return tl::make_unexpected(claimed.error().Error);
    const SortChoice choice = ChooseFor(goal, claimed->Scan);
    const QString folder = level + u'/' + claimed->Folder;
    if (HasIcon(pending.IconSource)) {
        if (const FileResult copied = CopyNodeIcon(pending.IconSource, folder); !copied)
            return tl::make_unexpected(copied.error());
    }
    IniText properties;
    SetNodeTitle(properties, pending);
    SetSort(properties, choice.Sort);
    SetNodeLink(properties, pending);
    if (const FileResult written = WriteNodeIni(folder, properties); !written)
        return tl::make_unexpected(written.error());
    Placed placed{{}, std::move(claimed->Scan), choice.Renumber, {}};
    ReadNodeKeys(properties, tree_.AppPath(), placed.Node);
    placed.Node.Folder = claimed->Folder;
    Note(placed.Failures, WriteRemark(level, claimed->Folder, placed.Node.Name));
    FetchFavicon(placed.Node, folder);
    return placed;
}

tl::expected<NodeOperations::Placed, FileError> NodeOperations::MoveWithinLevel(const Goal& goal,
                                                                                const TreeNode& moving) {
    const QString level = goal.Place.Folder();
    Placed placed{moving, ScanSiblings(level), false, {}};
    const SortChoice choice = ChooseFor(goal, placed.Scan);
    if (const auto there = LoadNodeIni(level + u'/' + moving.Folder); !there)
        return tl::make_unexpected(there.error());
    if (const FileResult written = WriteSort(level + u'/' + moving.Folder, choice.Sort); !written)
        return tl::make_unexpected(written.error());
    placed.Node.Sort = choice.Sort;
    placed.Renumber = choice.Renumber;
    return placed;
}

tl::expected<NodeOperations::Placed, FileError> NodeOperations::MoveOnDisk(const Goal& goal,
                                                                           const TreeNode& moving) {
    const QString from = goal.Source->TreePath();
    if (from == tree_.TreePath() && moving.RelativePath == goal.Place.RelativePath)
        return MoveWithinLevel(goal, moving);
    const QString level = goal.Place.Folder();
    SortChoice choice;
    auto moved = MoveNodeFolder({from, goal.Source->NodeFolder(moving), tree_.TreePath(), level,
                                 [&](const SiblingScan& scan) {
                                     choice = ChooseFor(goal, scan);
                                     return choice.Sort;
                                 },
                                 services_.Now()});
    if (!moved)
        return tl::make_unexpected(moved.error());
    Placed placed{moving, std::move(moved->Claimed.Scan), choice.Renumber, std::move(moved->Failures)};
    placed.Node.Folder = moved->Claimed.Folder;
    placed.Node.Sort = choice.Sort;
    Note(placed.Failures,
         MoveRemark(LevelFolder(from, moving.RelativePath), RemarkFileName(moving.Folder, moving.Name), level,
                    RemarkFileName(placed.Node.Folder, moving.Name)));
    return placed;
}

int NodeOperations::AddOrMoveNode(int targetRow, NodeMode mode) {
    const bool isMove = mode == NodeMode::Move;
    const std::optional<PendingNode>& pending = transfer_.Pending;
    const TreeNode* target = tree_.Find(targetRow);
    if (!pending || (targetRow != -1 && !target) || (isMove && !transfer_.Moving))
        return -1;
    const PendingNode wanted = *pending;
    if (!isMove && TrimBlanks(wanted.Name).isEmpty())
        return -1;
    if (target && wanted.Position == NodePosition::Child && target->ExpandState == BranchState::Collapsed)
        tree_.ExpandNode(targetRow);
    Goal goal = GoalOf(targetRow, wanted.Position);
    if (isMove)
        goal.Source = services_.TreeOf ? services_.TreeOf(transfer_.Moving->TreeIndex) : nullptr;
    if (isMove && !goal.Source)
        return -1;
    auto placed = isMove ? MoveOnDisk(goal, transfer_.Moving->Node) : AddOnDisk(goal, wanted);
    if (!placed)
        return Stop(placed.error());
    if (placed->Node.ExpandState == BranchState::Expanded)
        placed->Node.ExpandState = BranchState::Collapsed;
    const int row = tree_.EnterNode(placed->Node, targetRow, goal.Position);
    if (placed->Renumber) {
        const auto level = isMove ? ListedLevel(goal, *placed, row) : WholeLevel(goal, *placed, row);
        if (const FileResult numbered = Renumber(goal.Place.Folder(), level, row); !numbered)
            return Stop(numbered.error());
    }
    Tell(placed->Failures);
    return row;
}

bool NodeOperations::EditNode(int row) {
    const TreeNode* shown = tree_.Find(row);
    if (!shown || !transfer_.Pending || TrimBlanks(transfer_.Pending->Name).isEmpty())
        return false;
    const TreeNode before = *shown;
    const PendingNode wanted = *transfer_.Pending;
    const QString folder = tree_.NodeFolder(before);
    const bool keepsIcon = wanted.IconSource == kKeepIcon;
    if (before.Type.isEmpty() && !keepsIcon) {
        if (const FileResult changed = ChangeNodeIcon(wanted.IconSource, folder); !changed)
            return Stop(changed.error()) >= 0;
    }
    const bool changesLink = !keepsIcon || wanted.Type != before.Type;
    const auto properties = ChangeNodeKeys(folder, wanted, changesLink);
    if (!properties)
        return Stop(properties.error()) >= 0;
    TreeNode after = before;
    ReadNodeKeys(*properties, tree_.AppPath(), after);
    if (changesLink)
        FetchFavicon(after, folder);
    tree_.ChangeNode(row, after);
    const QString level = LevelFolder(tree_.TreePath(), before.RelativePath);
    const FileResult remark = MoveRemark(level, RemarkFileName(before.Folder, before.Name), level,
                                         RemarkFileName(before.Folder, after.Name));
    if (!remark)
        Tell({remark.error()});
    return true;
}

bool NodeOperations::DeleteNode(int row, DeleteMode mode) {
    const TreeNode* shown = tree_.Find(row);
    if (!shown)
        return false;
    const TreeNode node = *shown;
    if (mode == DeleteMode::RowsOnly) {
        tree_.RemoveNode(row);
        CloseNote();
        return true;
    }
    if (!services_.Ask.Confirm(QStringLiteral("Are you sure you want to delete '") + node.Name +
                                   QStringLiteral("' and all its sub node ?"),
                               QStringLiteral("Delete Confirmation")))
        return false;
    CloseNote();
    const QString folder = tree_.NodeFolder(node);
    std::vector<FileError> failures;
    Note(failures, RemoveNodeFolder(tree_.TreePath(), folder, services_.Now()));
    const bool isGone = !EntryExists(folder);
    if (isGone) {
        tree_.RemoveNode(row);
        Note(failures,
             RemoveRemark(LevelFolder(tree_.TreePath(), node.RelativePath), node.Folder, node.Name));
    }
    Tell(failures);
    return isGone;
}

} // namespace paneda
