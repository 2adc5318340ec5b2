#include "notes/node_operations.h"

#include "core/text/text_rules.h"
#include "notes/node_icon.h"
#include "notes/node_properties.h"
#include "notes/remark_file.h"

#include <QDir>
#include <QFileInfo>

#include <tuple>

namespace paneda {

namespace {

void Note(std::vector<FileError>& failures, const FileResult& result) {
    if (!result)
        failures.push_back(result.error());
}

bool HasIcon(const QString& source) {
    return !source.isEmpty() && source != kKeepIcon;
}

FileResult HasChanged(const DiskPath& folder) {
    return Failure(folder.Text(),
                   QStringLiteral("This node has changed since it was listed, so nothing was done. "
                                  "The tree has been read again."));
}

bool IsListed(const DiskPath& folder, const TreeModel& tree, const TreeNode& listed) {
    TreeNode found;
    ReadNodeKeys(ReadNodeIni(folder), tree.AppPath(), found);
    return found.Name.isEmpty() || (found.Name == listed.Name && found.Sort == listed.Sort);
}

// The nodes that a level lies in. Another user may have removed one, and a node that came later may have got
// its number: what is put there would go with that node. A parent that only has another place is the same.
FileResult CheckParents(const TreeModel& tree, const QString& relativePath) {
    QString path = QStringLiteral("\\");
    for (const QString& folder : relativePath.split(u'\\', Qt::SkipEmptyParts)) {
        const TreeNode* parent = tree.Find(tree.RowOf(path, folder));
        TreeNode found;
        if (parent)
            ReadNodeKeys(ReadNodeIni(tree.NodeFolder(*parent)), tree.AppPath(), found);
        if (parent && found.Name != parent->Name)
            return HasChanged(tree.NodeFolder(*parent));
        path += folder + u'\\';
    }
    return {};
}

// A folder that is missing or has no name is found out by the operation itself.
FileResult CheckUnchanged(const TreeModel& tree, const TreeNode& listed) {
    const DiskPath folder = tree.NodeFolder(listed);
    if (!IsListed(folder, tree, listed))
        return HasChanged(folder);
    return CheckParents(tree, listed.RelativePath);
}

bool IsSameFolder(const DiskPath& a, const DiskPath& b) {
    const QString real = QFileInfo(a.Text()).canonicalFilePath();
    return a.Text() == b.Text() || (!real.isEmpty() && real == QFileInfo(b.Text()).canonicalFilePath());
}

} // namespace

void NodeOperations::RunWork(const std::function<void()>& work) const {
    if (services_.Work)
        services_.Work(work);
    else
        work();
}

void NodeOperations::CloseNote() const {
    if (services_.CloseNote)
        services_.CloseNote();
}

void NodeOperations::FetchFavicon(const TreeNode& node, const DiskPath& folder) const {
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

std::optional<NodeOperations::Goal> NodeOperations::GoalOf(int targetRow, NodePosition position) {
    Goal goal;
    const TreeNode* target = tree_.Find(targetRow);
    if (!target && targetRow != -1)
        return std::nullopt;
    if (!target) {
        goal.Place = {tree_.TreePath(), QStringLiteral("\\"), 0, tree_.TreeName()};
        goal.TargetSort = FormatSort(0);
        return goal;
    }
    const bool isChild = position == NodePosition::Child;
    goal.Position = position;
    goal.TargetFolder = target->Folder;
    goal.TargetSort = target->Sort;
    goal.Place = isChild ? ChildPlace(tree_.TreePath(), *target) : PlaceOf(tree_.TreePath(), *target);
    if (isChild && target->ExpandState == BranchState::Collapsed)
        tree_.ExpandNode(targetRow);
    return goal;
}

bool NodeOperations::ComesInPlace(const Goal& goal, const SiblingScan& scan, const QString& moving,
                                  const QString& sort) {
    const bool isLast = goal.Position == NodePosition::Child;
    // What comes before the new node, and from the target on what comes behind it.
    bool isBefore = true;
    for (const std::size_t i : NodesInOrder(scan)) {
        const QString& folder = scan.Folders[qsizetype(i)];
        const bool isTarget = !isLast && folder == goal.TargetFolder;
        if (isTarget && goal.Position == NodePosition::Above)
            isBefore = false;
        const int order = CompareText(scan.Sorts[qsizetype(i)], sort);
        if (folder != moving && (isBefore ? order >= 0 : order <= 0))
            return false;
        if (isTarget)
            isBefore = false;
    }
    return true;
}

SortChoice NodeOperations::ChooseFor(const Goal& goal, const SiblingScan& scan, const QString& moving) {
    // Somebody else may have moved the target since it was listed.
    const qsizetype target = scan.Folders.indexOf(goal.TargetFolder);
    const bool isSibling = goal.Position != NodePosition::Child && target >= 0;
    const QString base = isSibling ? scan.Sorts[target] : goal.TargetSort;
    SortChoice choice = ChooseSort(goal.Position, base, NeighbourSort(goal.Position, base, scan.Sorts));
    // Texts that are equal, or no numbers, leave no room either.
    if (isSibling || goal.Position == NodePosition::Child)
        choice.Renumber = choice.Renumber || !ComesInPlace(goal, scan, moving, choice.Sort);
    return choice;
}

FileResult NodeOperations::FillNode(const DiskPath& folder, const PendingNode& pending,
                                    const IniText& properties) const {
    if (HasIcon(pending.IconSource)) {
        if (const FileResult copied = CopyNodeIcon(pending.IconSource, folder); !copied)
            return copied;
    }
    return WriteNodeIni(folder, properties);
}

tl::expected<NodeOperations::Placed, FileError> NodeOperations::AddOnDisk(const Goal& goal,
                                                                          const PendingNode& pending) const {
    const DiskPath level = goal.Place.Folder();
    if (const FileResult unchanged = CheckParents(tree_, goal.Place.RelativePath); !unchanged)
        return tl::make_unexpected(unchanged.error());
    auto claimed = ClaimFolder(level, [](const DiskPath& path) { return MakeNewFolder(path); });
    if (!claimed)
        return tl::make_unexpected(claimed.error().Error);
    const DiskPath folder = level / claimed->Folder;
    const SortChoice choice = ChooseFor(goal, claimed->Scan);
    IniText properties;
    // Neither is too long.
    std::ignore = SetNodeKeys(properties, pending, true);
    std::ignore = SetSort(properties, choice.Sort);
    if (const FileResult filled = FillNode(folder, pending, properties); !filled) {
        // An empty folder would give its parent an expand box. The first failure is the one to show.
        std::ignore = RemoveTree(folder);
        return tl::make_unexpected(filled.error());
    }
    Placed placed{{}, std::move(claimed->Scan), choice.Renumber, {}};
    ReadNodeKeys(properties, tree_.AppPath(), placed.Node);
    placed.Node.Folder = claimed->Folder;
    Note(placed.Failures, WriteRemark(level, claimed->Folder, placed.Node.Name));
    return placed;
}

tl::expected<NodeOperations::Placed, FileError>
NodeOperations::MoveWithinLevel(const Goal& goal, const TreeNode& moving) const {
    const DiskPath level = goal.Place.Folder();
    Placed placed{moving, ScanSiblings(level), false, {}};
    const SortChoice choice = ChooseFor(goal, placed.Scan, moving.Folder);
    if (const auto there = LoadNodeIni(level / moving.Folder); !there)
        return tl::make_unexpected(there.error());
    if (const FileResult written = WriteSort(level / moving.Folder, choice.Sort); !written)
        return tl::make_unexpected(written.error());
    placed.Node.Sort = choice.Sort;
    placed.Renumber = choice.Renumber;
    return placed;
}

tl::expected<NodeOperations::Placed, FileError>
NodeOperations::MoveOnDisk(const Goal& goal, const TreeModel& source, const TreeNode& moving) const {
    for (const FileResult& unchanged :
         {CheckUnchanged(source, moving), CheckParents(tree_, goal.Place.RelativePath)}) {
        if (!unchanged)
            return tl::make_unexpected(unchanged.error());
    }
    const DiskPath level = goal.Place.Folder();
    const DiskPath oldLevel = LevelFolder(source.TreePath(), moving.RelativePath);
    if (IsSameFolder(oldLevel, level))
        return MoveWithinLevel(goal, moving);
    SortChoice choice;
    auto moved =
        MoveNodeFolder({source.ContentFolder(), source.NodeFolder(moving), tree_.ContentFolder(), level,
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
    Note(placed.Failures, MoveRemark(oldLevel, RemarkFileName(moving.Folder, moving.Name), level,
                                     RemarkFileName(placed.Node.Folder, moving.Name)));
    return placed;
}

int NodeOperations::AddOrMoveNode(int targetRow, NodeMode mode) {
    if (!transfer_.Pending)
        return -1;
    const PendingNode pending = *transfer_.Pending;
    if (mode == NodeMode::Add)
        return AddNode(targetRow, pending);
    return transfer_.Moving ? PlaceNode(targetRow, pending, *transfer_.Moving) : -1;
}

bool NodeOperations::IsTooLong(const PendingNode& pending, bool setsLink, const QString& folder) const {
    IniText scratch;
    const IniResult set = SetNodeKeys(scratch, pending, setsLink);
    if (!set)
        Tell({{QDir::toNativeSeparators(folder), set.error()}});
    return !set;
}

int NodeOperations::AddNode(int targetRow, const PendingNode& pending) {
    const auto goal = TrimBlanks(pending.Name).isEmpty() ? std::nullopt : GoalOf(targetRow, pending.Position);
    if (!goal || IsTooLong(pending, true, goal->Place.Folder().Text()))
        return -1;
    tl::expected<Placed, FileError> placed;
    RunWork([&] { placed = AddOnDisk(*goal, pending); });
    if (!placed)
        return Stop(placed.error());
    FetchFavicon(placed->Node, goal->Place.Folder() / placed->Node.Folder);
    const int row = tree_.EnterNode(placed->Node, targetRow, goal->Position);
    if (placed->Renumber) {
        const FileResult numbered = Renumber(*goal, WholeLevel(*goal, *placed), placed->Node.Folder);
        if (!numbered)
            return Stop(numbered.error());
    }
    Tell(placed->Failures);
    return row;
}

int NodeOperations::PlaceNode(int targetRow, const PendingNode& pending, const MovingNode& moving) {
    const TreeModel* source = services_.TreeOf ? services_.TreeOf(moving.TreeIndex) : nullptr;
    const auto goal = source ? GoalOf(targetRow, pending.Position) : std::nullopt;
    if (!goal)
        return -1;
    tl::expected<Placed, FileError> placed;
    RunWork([&] { placed = MoveOnDisk(*goal, *source, moving.Node); });
    if (!placed)
        return Stop(placed.error());
    if (placed->Node.ExpandState == BranchState::Expanded)
        placed->Node.ExpandState = BranchState::Collapsed;
    const int row = tree_.EnterNode(placed->Node, targetRow, goal->Position);
    if (placed->Renumber) {
        const FileResult numbered = Renumber(*goal, ListedLevel(*goal, *placed, row), placed->Node.Folder);
        if (!numbered)
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
    const DiskPath folder = tree_.NodeFolder(before);
    const bool keepsIcon = wanted.IconSource == kKeepIcon;
    const bool changesLink = !keepsIcon || wanted.Type != before.Type;
    if (IsTooLong(wanted, changesLink, folder.Text()))
        return false;
    tl::expected<IniText, FileError> properties;
    std::vector<FileError> failures;
    RunWork([&] {
        const FileResult unchanged = CheckUnchanged(tree_, before);
        properties =
            unchanged ? ChangeNodeKeys(folder, wanted, changesLink) : tl::make_unexpected(unchanged.error());
        if (properties && before.Type.isEmpty() && !keepsIcon)
            Note(failures, ChangeNodeIcon(wanted.IconSource, folder));
    });
    if (!properties)
        return Stop(properties.error()) >= 0;
    TreeNode after = before;
    ReadNodeKeys(*properties, tree_.AppPath(), after);
    if (changesLink)
        FetchFavicon(after, folder);
    tree_.ChangeNode(row, after);
    const DiskPath level = LevelFolder(tree_.TreePath(), before.RelativePath);
    RunWork([&] {
        Note(failures, MoveRemark(level, RemarkFileName(before.Folder, before.Name), level,
                                  RemarkFileName(before.Folder, after.Name)));
    });
    Tell(failures);
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
    const DiskPath folder = tree_.NodeFolder(node);
    FileResult unchanged;
    std::vector<FileError> failures;
    bool isGone = false;
    RunWork([&] {
        unchanged = CheckUnchanged(tree_, node);
        if (!unchanged)
            return;
        Note(failures, RemoveNodeFolder(tree_.ContentFolder(), folder, services_.Now(),
                                        [&](const DiskPath& taken) { return IsListed(taken, tree_, node); }));
        isGone = !EntryExists(folder);
        if (isGone)
            Note(failures,
                 RemoveRemark(LevelFolder(tree_.TreePath(), node.RelativePath), node.Folder, node.Name));
    });
    if (!unchanged)
        return Stop(unchanged.error()) >= 0;
    if (isGone)
        tree_.RemoveNode(row);
    Tell(failures);
    return isGone;
}

} // namespace paneda
