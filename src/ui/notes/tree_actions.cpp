#include "ui/notes/tree_actions.h"

#include "notes/node_menu.h"
#include "notes/shortcut_start.h"
#include "ui/common/busy_work.h"
#include "ui/notes/dropped_nodes.h"
#include "ui/notes/tree_menus.h"
#include "ui/notes/ucTree.h"

#include <QMimeData>
#include <QTimer>

namespace paneda {

DiskWork TreeActions::ShownWork() {
    return [this](const std::function<void()>& work) {
        const BusyMark mark(desk_);
        tree_.ChangeMousePointer(true);
        WorkShownBy (*tree_.window())(work);
        tree_.ChangeMousePointer(false);
    };
}

NodeOperations TreeActions::Operations() {
    NodeServices services{desk_.Services.Prompts, {}, {}, {}};
    services.TreeOf = [this](int index) {
        ucTree* tree = desk_.TreeOf ? desk_.TreeOf(index) : nullptr;
        return tree ? &tree->Model() : nullptr;
    };
    services.CloseNote = [this] { CloseNote(); };
    if (desk_.Services.Dialogs)
        services.FetchFavicon = [this](const QString& address, const DiskPath& file) {
            const BusyMark mark(desk_);
            desk_.Services.Dialogs->FetchFavicon(*tree_.window(), address, file);
        };
    services.Work = ShownWork();
    return {tree_.Model(), desk_.Transfer, std::move(services)};
}

void TreeActions::CloseNote() {
    if (desk_.Services.Note)
        desk_.Services.Note->Close();
}

void TreeActions::PressRow(int row, PressOrigin origin, PressButton button, const QPoint& place) {
    if (IsBusy())
        return;
    const BusyMark mark(desk_);
    Press(row, origin, button, place);
}

void TreeActions::Press(int row, PressOrigin origin, PressButton button, const QPoint& place) {
    const TreeNode* node = tree_.Model().Find(row);
    if (!node)
        return;
    tree_.SelectRow(row);
    // Before anything slow starts.
    tree_.repaint();
    switch (DecidePress(origin, button, node->Type, desk_.Transfer.Moving.has_value())) {
    case PressAction::Start:
        Start(*node);
        break;
    case PressAction::OpenNote:
        OpenNote(row);
        break;
    case PressAction::ShowNodeMenu:
        CloseNote();
        ShowNodeMenu(row, place);
        break;
    case PressAction::ShowMoveMenu:
        ShowMoveMenu(row, place);
        break;
    case PressAction::SelectOnly:
        break;
    }
}

void TreeActions::PressCanvas(PressButton button, const QPoint& place) {
    if (IsBusy())
        return;
    const BusyMark mark(desk_);
    const bool isEmpty = tree_.Model().Nodes().empty() && !tree_.Model().TreeName().isEmpty();
    // A tree without rows has no other place for a node that is moved.
    if (button == PressButton::Left && isEmpty && desk_.Transfer.Moving)
        ShowMoveMenu(-1, place);
    else if (button == PressButton::Right)
        Refresh(place);
    else if (desk_.Services.Dialogs)
        desk_.Services.Dialogs->ShowTreeList(*tree_.window(), place);
}

void TreeActions::ToggleNode(int row) {
    if (IsBusy())
        return;
    const BusyMark mark(desk_);
    tree_.ToggleNode(row);
}

void TreeActions::Open(int row) {
    PressRow(row, PressOrigin::Label, PressButton::Left, tree_.PlaceBelow(row));
}

void TreeActions::OpenNote(int row) {
    const TreeNode* node = tree_.Model().Find(row);
    if (node && desk_.Services.Note)
        desk_.Services.Note->Open(tree_.Model(), *node);
}

void TreeActions::Start(const TreeNode& node) {
    desk_.Services.Volumes.Refresh(desk_.State.Drives);
    desk_.Services.Opener.Open(DecideNodeStart(node, desk_.State.AppPath, desk_.State.Browser),
                               {desk_.State.Drives, desk_.State.AppPath});
}

void TreeActions::ShowNodeMenu(int row, const QPoint& place) {
    const NodeMenuChoice choice = DecodeNodeMenu(AskNodeMenu(desk_.Services.Dialogs != nullptr, place));
    switch (choice.Command) {
    case NodeCommand::Add:
        Add(row, choice.Type, choice.Position, false, place);
        break;
    case NodeCommand::Edit:
        EditNode(row, place);
        break;
    case NodeCommand::Move:
        Operations().StartMove(row);
        desk_.MoveChanged();
        break;
    case NodeCommand::Delete:
        DeleteNode(row);
        break;
    case NodeCommand::None:
        break;
    }
}

void TreeActions::ShowMoveMenu(int row, const QPoint& place) {
    const MoveChoice choice = DecodeMoveMenu(AskMoveMenu(place));
    if (choice == MoveChoice::None)
        return;
    const int moved = Operations().FinishMove(row, choice);
    if (moved >= 0) {
        tree_.SelectRow(moved);
        tree_.ScrollTo(moved);
    }
    desk_.MoveChanged();
}

void TreeActions::EndMove() {
    desk_.Transfer.Moving.reset();
    desk_.MoveChanged();
}

void TreeActions::Edit(int row, const QPoint& place) {
    if (IsBusy())
        return;
    const BusyMark mark(desk_);
    EditNode(row, place);
}

void TreeActions::EditNode(int row, const QPoint& place) {
    const TreeNode* shown = tree_.Model().Find(row);
    if (!shown || !desk_.Services.Dialogs)
        return;
    const TreeNode node = *shown;
    desk_.Transfer.Pending = desk_.Services.Dialogs->Ask({.Window = tree_.window(),
                                                          .Type = node.Type,
                                                          .Node = &node,
                                                          .NodeFolder = tree_.Model().NodeFolder(node),
                                                          .Mouse = place});
    if (!desk_.Transfer.Pending || !Operations().EditNode(row))
        return;
    tree_.SelectRow(row);
    if (const TreeNode* changed = tree_.Model().Find(row); changed && desk_.Services.Note)
        desk_.Services.Note->ShowName(tree_.Model(), *changed);
}

void TreeActions::Delete(int row) {
    if (IsBusy())
        return;
    const BusyMark mark(desk_);
    DeleteNode(row);
}

void TreeActions::DeleteNode(int row) {
    Operations().DeleteNode(row, DeleteMode::AskAndDelete);
}

void TreeActions::Insert(int row, const QPoint& place) {
    if (IsBusy())
        return;
    const BusyMark mark(desk_);
    const bool isFirst = tree_.Model().Nodes().empty();
    if (tree_.Model().Find(row) || isFirst)
        Add(isFirst ? -1 : row, {}, NodePosition::Below, isFirst, place);
}

void TreeActions::Add(int row, const QString& type, NodePosition position, bool isFirst,
                      const QPoint& place) {
    if (!desk_.Services.Dialogs)
        return;
    const auto pending = desk_.Services.Dialogs->Ask(
        {.Window = tree_.window(), .Type = type, .Position = position, .IsFirst = isFirst, .Mouse = place});
    if (!pending)
        return;
    const int added = Enter(*pending, row);
    const TreeNode* node = tree_.Model().Find(added);
    if (!node)
        return;
    // While a node waits for its place, a press would ask whether that is here.
    const bool isNote = node->Type.isEmpty() && !desk_.Transfer.Moving;
    Press(added, isNote ? PressOrigin::Label : PressOrigin::NewLink, PressButton::Left, place);
}

int TreeActions::Enter(const PendingNode& pending, int row) {
    desk_.Transfer.Pending = pending;
    const int added = Operations().AddOrMoveNode(row, NodeMode::Add);
    desk_.Transfer.Pending.reset();
    if (added >= 0) {
        tree_.SelectRow(added);
        tree_.ScrollTo(added);
    }
    return added;
}

void TreeActions::Refresh(const QPoint& place) {
    if (tree_.Model().TreeName().isEmpty())
        return;
    CloseNote();
    switch (tree_.Model().Refresh()) {
    case RefreshOutcome::OfferFirstNote:
        Add(-1, {}, NodePosition::Below, true, place);
        break;
    case RefreshOutcome::FolderNotFound:
        desk_.Services.Prompts.Notice(tree_.Model().NotFoundText());
        break;
    case RefreshOutcome::Shown:
        break;
    }
}

bool TreeActions::TakesDrop(const QMimeData& data) const {
    return !IsBusy() && !tree_.Model().TreeName().isEmpty() && !DroppedAddresses(data).empty();
}

void TreeActions::Drop(const QMimeData& data, int row, NodePosition where) {
    if (!TakesDrop(data))
        return;
    const auto dropped = DroppedAddresses(data);
    QTimer::singleShot(0, &tree_, [this, dropped, row, where] {
        int target = row;
        NodePosition position = where;
        for (const DroppedAddress& address : dropped) {
            // A drop of another program comes through while the disk is busy.
            if (IsBusy())
                return;
            const BusyMark mark(desk_);
            const auto pending = DroppedNode(address, position, desk_.State);
            const int added = pending ? Enter(*pending, target) : -1;
            if (added < 0)
                return;
            // The next one stands behind it.
            target = added;
            position = NodePosition::Below;
        }
    });
}

} // namespace paneda
