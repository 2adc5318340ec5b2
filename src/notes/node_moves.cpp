#include "notes/node_operations.h"

#include <QFileInfo>
#include <QHash>

namespace paneda {

namespace {

// Without links, so that two ways to one folder give one path.
QString RealPath(const QString& path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

struct PlaceInTree {
    QString RelativePath;
    QString Folder;
};

// Where a node's folder (a real path) lies in a tree; nothing when it lies outside.
std::optional<PlaceInTree> FindInTree(const TreeModel& tree, const QString& nodeFolder) {
    QString root = RealPath(tree.TreePath());
    if (!root.endsWith(u'/'))
        root += u'/';
    if (!nodeFolder.startsWith(root))
        return std::nullopt;
    const qsizetype end = nodeFolder.lastIndexOf(u'/');
    QString relative = nodeFolder.mid(root.size() - 1, end - root.size() + 2);
    return PlaceInTree{relative.replace(u'/', u'\\'), nodeFolder.mid(end + 1)};
}

} // namespace

void NodeOperations::StartMove(int row) {
    if (const TreeNode* node = tree_.Find(row))
        transfer_.Moving = MovingNode{*node, tree_.TreeIndex()};
}

QString NodeOperations::PlaceFault(const TreeModel& source, int targetRow) const {
    const TreeNode* target = tree_.Find(targetRow);
    const QString from = RealPath(source.NodeFolder(transfer_.Moving->Node).Text());
    const QString to = RealPath(target ? tree_.NodeFolder(*target).Text() : tree_.TreePath());
    if (to == from)
        return QStringLiteral("Cannot Place to Same Node");
    return to.startsWith(from + u'/') ? QStringLiteral("Cannot Place to Child Node") : QString();
}

int NodeOperations::FinishMove(int targetRow, MoveChoice choice) {
    if (!transfer_.Moving || choice == MoveChoice::None)
        return -1;
    int row = -1;
    if (choice != MoveChoice::Cancel) {
        TreeModel* source = services_.TreeOf ? services_.TreeOf(transfer_.Moving->TreeIndex) : nullptr;
        QString fault = QStringLiteral("'%1' was not moved, since its tree has been closed.")
                            .arg(transfer_.Moving->Node.Name);
        if (source)
            RunWork([&] { fault = PlaceFault(*source, targetRow); });
        if (fault.isEmpty())
            row = PlaceMoving(*source, targetRow, NodePosition(choice));
        else
            services_.Ask.Notice(fault);
    }
    transfer_.Moving.reset();
    return row;
}

int NodeOperations::PlaceMoving(TreeModel& source, int targetRow, NodePosition position) {
    const TreeNode node = transfer_.Moving->Node;
    QString oldFolder;
    RunWork([&] { oldFolder = RealPath(source.NodeFolder(node).Text()); });
    transfer_.Pending =
        PendingNode{node.Name, kKeepIcon, position, node.Description, node.Type, node.LinkData};
    CloseNote();
    const int row = AddOrMoveNode(targetRow, NodeMode::Move);
    transfer_.Pending.reset();
    if (row < 0)
        return row;
    FollowMove(tree_, oldFolder, row);
    if (&source != &tree_)
        FollowMove(source, oldFolder, row);
    return row;
}

void NodeOperations::FollowMove(TreeModel& tree, const QString& oldFolder, int newRow) const {
    const TreeNode* placed = tree_.Find(newRow);
    const int keep = &tree == &tree_ ? newRow : -1;
    std::optional<PlaceInTree> old;
    std::optional<PlaceInTree> place;
    bool hasLeft = false;
    RunWork([&] {
        const QString newFolder = placed ? RealPath(tree_.NodeFolder(*placed).Text()) : QString();
        // A folder that could not be removed on its volume is still a node.
        hasLeft = oldFolder == newFolder || !EntryExists(oldFolder);
        old = FindInTree(tree, oldFolder);
        if (placed && keep < 0)
            place = FindInTree(tree, newFolder);
    });
    if (old && hasLeft)
        tree.RemoveNode(tree.RowOf(old->RelativePath, old->Folder, keep));
    if (!place)
        return;
    QHash<QString, QString> sorts;
    for (const TreeNode& node : tree_.Nodes()) {
        if (node.RelativePath == placed->RelativePath)
            sorts.insert(node.Folder, node.Sort);
    }
    tree.ChangeSorts(place->RelativePath, sorts);
    tree.EnterInOrder(*placed, place->RelativePath);
}

} // namespace paneda
