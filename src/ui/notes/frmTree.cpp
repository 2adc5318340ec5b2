#include "ui/notes/frmTree.h"

#include "ui/notes/tree_accessible.h"
#include "ui/notes/ucTree.h"

#include <QTimer>
#include <QWindow>

#include <utility>

namespace paneda {

frmTree::frmTree(AppState& state, const TreeServices& services, const QString& skinPath)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
    , desk_{.State = state, .Services = services, .Look = LoadTreeLook(skinPath)} {
    setObjectName(QStringLiteral("frmTree"));
    setWindowTitle(QStringLiteral("Tree"));
    // The panel keeps the focus until the user works in the tree.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    RegisterTreeAccessibility();
    desk_.TreeOf = [this](int index) { return ControlOf(index); };
    desk_.MoveChanged = [this] {
        for (ucTree* tree : trees_) {
            if (tree)
                tree->ChangeMousePointer(false);
        }
    };
    // Later, since who has been at work may still look at a tree.
    desk_.Idle = [this] { QTimer::singleShot(0, this, &frmTree::DeleteClosed); };
    SetOpacity(state.TreeOpacity);
}

frmTree::~frmTree() {
    desk_.Idle = {};
    // Before what they share.
    for (const auto* trees : {&trees_, &closed_}) {
        for (ucTree* tree : *trees)
            delete tree;
    }
}

void frmTree::StayAbove(QWidget& panel) {
    winId();
    panel.winId();
    windowHandle()->setTransientParent(panel.windowHandle());
}

void frmTree::Retire() {
    hide();
    isRetired_ = true;
    DeleteClosed();
}

void frmTree::DeleteClosed() {
    if (desk_.Busy > 0)
        return;
    for (ucTree* tree : std::exchange(closed_, {}))
        delete tree;
    if (isRetired_)
        deleteLater();
}

ucTree* frmTree::ControlOf(int treeIndex) const {
    return treeIndex >= 0 && treeIndex < int(trees_.size()) ? trees_[std::size_t(treeIndex)] : nullptr;
}

ucTree* frmTree::MakeControl(int treeIndex) {
    if (treeIndex >= int(trees_.size()))
        trees_.resize(std::size_t(treeIndex) + 1, nullptr);
    auto* tree = new ucTree(desk_, treeIndex, this);
    tree->setGeometry(rect());
    trees_[std::size_t(treeIndex)] = tree;
    return tree;
}

void frmTree::BringToFront(ucTree* tree) {
    if (!tree)
        return;
    for (ucTree* other : trees_) {
        if (other && other != tree)
            other->hide();
    }
    current_ = tree;
    tree->show();
    tree->raise();
    tree->setFocus(Qt::OtherFocusReason);
}

void frmTree::RefreshTree(const QString& showTree, const QString& removeTree) {
    const TreeSwitch change = open_.RefreshTree(showTree, removeTree);
    if (change.Unload) {
        ucTree* closed = std::exchange(trees_[std::size_t(*change.Unload)], nullptr);
        closed->hide();
        if (closed == current_)
            ShowNoTree();
        // Not now: the press that has led here may be one on this very tree.
        closed_.push_back(closed);
        desk_.Idle();
    }
    if (change.Load) {
        // Shown before it is read, which may take as long as a disk does.
        ucTree* opened = MakeControl(*change.Load);
        if (change.Show)
            BringToFront(opened);
        opened->SetTreePath(showTree);
    } else if (change.Show) {
        BringToFront(ControlOf(*change.Show));
    }
}

void frmTree::ShowNoTree() {
    ucTree* none = ControlOf(0);
    BringToFront(none ? none : MakeControl(0));
}

void frmTree::SetSkin(const QString& skinPath) {
    desk_.Look = LoadTreeLook(skinPath);
    for (ucTree* tree : trees_) {
        if (tree)
            tree->LookChanged();
    }
}

void frmTree::SetOpacity(double opacity) {
    setWindowOpacity(opacity);
}

void frmTree::resizeEvent(QResizeEvent*) {
    for (ucTree* tree : trees_) {
        if (tree)
            tree->setGeometry(rect());
    }
}

} // namespace paneda
