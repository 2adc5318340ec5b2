#include "notes/node_operations.h"

namespace paneda {

void NodeOperations::StartMove(int row) {
    if (const TreeNode* node = tree_.Find(row))
        transfer_.Moving = MovingNode{*node, tree_.TreeIndex()};
}

int NodeOperations::OldRow(const TreeModel& source, int newRow) const {
    const TreeNode& node = transfer_.Moving->Node;
    return source.RowOf(node.RelativePath, node.Folder, &source == &tree_ ? newRow : -1);
}

QString NodeOperations::PlaceFault(const TreeModel& source, int targetRow) const {
    const TreeNode* target = tree_.Find(targetRow);
    const QString from = source.NodeFolder(transfer_.Moving->Node);
    const QString to = target ? tree_.NodeFolder(*target) : tree_.TreePath();
    if (to == from)
        return QStringLiteral("Cannot Place to Same Node");
    return to.startsWith(from + u'/') ? QStringLiteral("Cannot Place to Child Node") : QString();
}

int NodeOperations::FinishMove(int targetRow, MoveChoice choice) {
    if (!transfer_.Moving || choice == MoveChoice::None)
        return -1;
    TreeModel* source = services_.TreeOf ? services_.TreeOf(transfer_.Moving->TreeIndex) : nullptr;
    int row = -1;
    if (choice != MoveChoice::Cancel && source) {
        const QString fault = PlaceFault(*source, targetRow);
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
    transfer_.Pending =
        PendingNode{node.Name, kKeepIcon, position, node.Description, node.Type, node.LinkData};
    CloseNote();
    const int row = AddOrMoveNode(targetRow, NodeMode::Move);
    transfer_.Pending.reset();
    if (row < 0)
        return row;
    // A folder that could not be removed on its volume is still a node.
    const int oldRow = OldRow(source, row);
    const TreeNode* placed = tree_.Find(row);
    const bool isSameFolder = placed && tree_.NodeFolder(*placed) == source.NodeFolder(node);
    if (isSameFolder || !EntryExists(source.NodeFolder(node)))
        source.RemoveNode(oldRow);
    return row;
}

} // namespace paneda
