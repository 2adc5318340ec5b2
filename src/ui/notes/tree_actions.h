#pragma once

#include "notes/tree_input.h"
#include "ui/notes/tree_services.h"

#include <QPoint>

class QMimeData;

namespace paneda {

class ucTree;

// What a user does in a tree: what presses start, the two menus, and the changes of nodes that they ask for.
// Places are pixels of the desktop. A row that is not in the list is ignored, and so is what comes while
// something else is going on.
class TreeActions {
public:
    TreeActions(TreeDesk& desk, ucTree& tree) : desk_(desk), tree_(tree) {}

    void PressRow(int row, PressOrigin origin, PressButton button, const QPoint& place);
    void PressCanvas(PressButton button, const QPoint& place);
    void ToggleNode(int row);

    // What a press of the left button on the row's text does.
    void Open(int row);
    void Edit(int row, const QPoint& place);
    void Delete(int row);
    // Adds a note below a row; the first note in an empty tree.
    void Insert(int row, const QPoint& place);
    // A pending move comes to nothing.
    void EndMove();

    bool TakesDrop(const QMimeData& data) const;
    // Makes a shortcut of each file, and a favorite of each address. Returns at once: the disk is used when
    // the program that gives them has gone on.
    void Drop(const QMimeData& data, int row, NodePosition where);

    // Disk work of this tree, with the hourglass while it runs.
    DiskWork ShownWork();

private:
    NodeOperations Operations();
    bool IsBusy() const { return desk_.Busy > 0; }
    // The same as the public ones, within an operation.
    void Press(int row, PressOrigin origin, PressButton button, const QPoint& place);
    void EditNode(int row, const QPoint& place);
    void DeleteNode(int row);
    void CloseNote();
    void OpenNote(int row);
    void Start(const TreeNode& node);
    void ShowNodeMenu(int row, const QPoint& place);
    void ShowMoveMenu(int row, const QPoint& place);
    void Add(int row, const QString& type, NodePosition position, bool isFirst, const QPoint& place);
    // Adds what has been asked for, and selects it. Returns the new row, or -1.
    int Enter(const PendingNode& pending, int row);
    void Refresh(const QPoint& place);

    TreeDesk& desk_;
    ucTree& tree_;
};

} // namespace paneda
