#include "core/text/device_pixels.h"
#include "notes/tree_search.h"
#include "ui/common/dtVisualScrollBar.h"
#include "ui/common/tool_tip.h"
#include "ui/notes/tree_actions.h"
#include "ui/notes/tree_find.h"
#include "ui/notes/ucTree.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolTip>

// A tree's answers to the mouse, the keys and what is dropped on it.

namespace paneda {

namespace {

PressButton ButtonOf(Qt::MouseButton button) {
    if (button == Qt::LeftButton)
        return PressButton::Left;
    return button == Qt::RightButton ? PressButton::Right : PressButton::Other;
}

std::optional<TreeKey> TreeKeyOf(int key) {
    switch (key) {
    case Qt::Key_Up:
        return TreeKey::Up;
    case Qt::Key_Down:
        return TreeKey::Down;
    case Qt::Key_Home:
        return TreeKey::Home;
    case Qt::Key_End:
        return TreeKey::End;
    case Qt::Key_PageUp:
        return TreeKey::PageUp;
    case Qt::Key_PageDown:
        return TreeKey::PageDown;
    case Qt::Key_Left:
        return TreeKey::Left;
    case Qt::Key_Right:
        return TreeKey::Right;
    default:
        return std::nullopt;
    }
}

} // namespace

void ucTree::resizeEvent(QResizeEvent*) {
    // Indicators stand where they are seen.
    strips_.clear();
    find_->Place();
    ResizeCanvas();
}

void ucTree::wheelEvent(QWheelEvent* event) {
    if (!dtVisualScrollBar1_->isHidden())
        QCoreApplication::sendEvent(dtVisualScrollBar1_, event);
    event->accept();
}

void ucTree::Press(const QMouseEvent& event) {
    const QPoint place = LayoutPoint(event.position(), Ratio());
    const Spot spot = SpotAt(place);
    QToolTip::hideText();
    if (spot.Position < 0) {
        actions_->PressCanvas(ButtonOf(event.button()), event.globalPosition().toPoint());
        return;
    }
    const int row = model_.Nodes()[std::size_t(spot.Position)].RowIndex;
    if (spot.Part == TreePart::Box)
        actions_->ToggleNode(row);
    else
        actions_->PressRow(row, spot.Part == TreePart::Icon ? PressOrigin::Icon : PressOrigin::Label,
                           ButtonOf(event.button()), event.globalPosition().toPoint());
}

void ucTree::mousePressEvent(QMouseEvent* event) {
    setFocus(Qt::MouseFocusReason);
    Press(*event);
}

void ucTree::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second press of a quick pair opens and closes a branch again. On a row it would start a program
    // twice, and on the canvas read the tree twice.
    if (SpotAt(LayoutPoint(event->position(), Ratio())).Part == TreePart::Box)
        Press(*event);
}

void ucTree::mouseMoveEvent(QMouseEvent* event) {
    UpdatePointer(event->position().toPoint());
}

void ucTree::ChangeMousePointer(bool isBusy) {
    isBusy_ = isBusy;
    UpdatePointer(mapFromGlobal(QCursor::pos()));
}

void ucTree::UpdatePointer(const QPoint& place) {
    Qt::CursorShape shape = Qt::ArrowCursor;
    if (isBusy_)
        shape = Qt::WaitCursor;
    else if (desk_.Transfer.Moving)
        shape = Qt::DragMoveCursor;
    else if (SpotAt(place).Position >= 0)
        shape = Qt::PointingHandCursor;
    if (cursor().shape() != shape)
        setCursor(shape);
}

QString ucTree::TipAt(const QPoint& place) const {
    const Spot spot = SpotAt(place);
    if (spot.Position < 0)
        return model_.CanvasTip();
    return spot.Part == TreePart::Box ? QString() : NodeTip(model_.Nodes()[std::size_t(spot.Position)]);
}

bool ucTree::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const Spot spot = SpotAt(help->pos());
        // Another row's tip does not stay while the mouse goes on.
        QToolTip::showText(help->globalPos(), RichTip(TipAt(help->pos())), this, RowRect(spot.Position));
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        // Keys of the tree, before the panel's windows take them.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Find) || key->key() == Qt::Key_F3) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

bool ucTree::StepByKey(int key) {
    const auto step = TreeKeyOf(key);
    if (!step)
        return false;
    const int from = SelectedPosition() >= 0 ? SelectedPosition()
                                             : std::min(lastPosition_, int(model_.Nodes().size()) - 1);
    const KeyStep next = DecideKey(model_.Nodes(), from, *step, View().PageRows());
    if (next.Position < 0)
        return true;
    const int row = model_.Nodes()[std::size_t(next.Position)].RowIndex;
    if (row != model_.SelectedRow())
        SelectRow(row);
    ScrollTo(row);
    if (next.Toggle)
        actions_->ToggleNode(row);
    return true;
}

void ucTree::TypeToFind(const QString& text) {
    constexpr qint64 kPause = 1000; // milliseconds, after which a name begins anew
    if (!sinceTyped_.isValid() || sinceTyped_.elapsed() > kPause)
        typed_.clear();
    sinceTyped_.start();
    typed_ += text;
    const int found = NextByFirstLetters(model_.Nodes(), SelectedPosition(), typed_);
    if (found < 0)
        return;
    SelectRow(model_.Nodes()[std::size_t(found)].RowIndex);
    ScrollTo(model_.SelectedRow());
}

void ucTree::keyPressEvent(QKeyEvent* event) {
    const int row = model_.SelectedRow();
    if (event->matches(QKeySequence::Find))
        OpenFindLine();
    else if (event->key() == Qt::Key_F3)
        find_->Walk(event->modifiers() & Qt::ShiftModifier ? -1 : 1);
    else if (event->key() == Qt::Key_Escape && desk_.Transfer.Moving)
        actions_->EndMove();
    else if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        event->ignore();
    else if (StepByKey(event->key()))
        typed_.clear();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        actions_->Open(row);
    else if (event->key() == Qt::Key_F2)
        actions_->Edit(row, PlaceBelow(row));
    else if (event->key() == Qt::Key_Delete)
        actions_->Delete(row);
    else if (event->key() == Qt::Key_Insert)
        actions_->Insert(row, PlaceBelow(row));
    else if (!event->text().isEmpty() && event->text().front().isPrint())
        TypeToFind(event->text());
    else
        event->ignore();
}

// The menu key. A press of the mouse's button has opened the menu already.
void ucTree::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard && model_.Find(model_.SelectedRow()))
        actions_->PressRow(model_.SelectedRow(), PressOrigin::Label, PressButton::Right,
                           PlaceBelow(model_.SelectedRow()));
    event->accept();
}

void ucTree::OpenFindLine() {
    find_->Open();
}

void ucTree::ToggleNode(int row) {
    find_->WithSameNodes([&] { model_.ToggleNode(row); });
}

void ucTree::dragEnterEvent(QDragEnterEvent* event) {
    if (actions_->TakesDrop(*event->mimeData()))
        event->accept();
}

void ucTree::dragMoveEvent(QDragMoveEvent* event) {
    dropPlace_ = event->position().toPoint();
    constexpr int kScrollEdge = 18; // pixels from which on the rows move
    if (!dtVisualScrollBar1_->isHidden()) {
        if (dropPlace_->y() < kScrollEdge + find_->TakenHeight())
            dtVisualScrollBar1_->SetValue(Scrolled() - TreeModel::RowHeight);
        else if (dropPlace_->y() > height() - kScrollEdge)
            dtVisualScrollBar1_->SetValue(Scrolled() + TreeModel::RowHeight);
    }
    update();
    // The giver of the files would delete them after a move.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void ucTree::dragLeaveEvent(QDragLeaveEvent*) {
    dropPlace_.reset();
    update();
}

void ucTree::dropEvent(QDropEvent* event) {
    dropPlace_.reset();
    update();
    const QPoint place = event->position().toPoint();
    const int canvasTop = PixelsToTwips(place.y() - find_->TakenHeight()) + Scrolled();
    const DropGoal goal = DropGoalAt(model_.Nodes(), canvasTop);
    const int row = goal.Position < 0 ? -1 : model_.Nodes()[std::size_t(goal.Position)].RowIndex;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    actions_->Drop(*event->mimeData(), row, goal.Where);
}

} // namespace paneda
