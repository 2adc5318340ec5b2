#include "ui/notes/tree_satellite.h"

#include "ui/notes/ucTree.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace paneda {

TreeSatellite::~TreeSatellite() {
    delete window_;
}

void TreeSatellite::Unload() {
    wanted_.reset();
    if (window_)
        window_->Retire();
    window_.clear();
}

bool TreeSatellite::Owns(WId window) const {
    // Asking a widget for its number would make its window.
    return window_ && window_->internalWinId() == window && window != 0;
}

void TreeSatellite::OpenTree(const std::optional<TreeOnPanel>& tree) {
    wanted_ = tree;
    if (!tree) {
        Hide();
        return;
    }
    tree->Panel->installEventFilter(this);
    connect(tree->Panel, &QObject::destroyed, this, &TreeSatellite::Unload, Qt::UniqueConnection);
    // A hidden panel's tree, and that of one that has not been painted yet, can wait.
    if (tree->IsPanelShown)
        Show(true);
}

void TreeSatellite::Show(bool treeIsOpened) {
    if (!treeIsOpened || !wanted_)
        return;
    if (!window_) {
        window_ = new frmTree(state_, services_, wanted_->SkinPath);
        window_->StayAbove(*wanted_->Panel);
        skinPath_ = wanted_->SkinPath;
    } else if (skinPath_ != wanted_->SkinPath) {
        skinPath_ = wanted_->SkinPath;
        window_->SetSkin(skinPath_);
    }
    const QWidget* panel = wanted_->Panel;
    Place({PixelsToTwips(panel->x()), PixelsToTwips(panel->y())});
    window_->show();
    window_->raise();
    if (wanted_->TreeName.isEmpty())
        window_->ShowNoTree();
    else
        window_->RefreshTree(QString(wanted_->TreeName), {});
}

void TreeSatellite::Hide() {
    if (window_)
        window_->hide();
}

void TreeSatellite::Follow(const TwipsRect& panel, const WindowPlace*) {
    if (window_ && wanted_)
        Place({panel.Left, panel.Top});
}

void TreeSatellite::Place(WindowPlace panel) {
    const QRect inner = ToPixels(wanted_->Inner);
    window_->setFixedSize(inner.size());
    window_->move(TwipsToPixels(panel.Left) + inner.x(), TwipsToPixels(panel.Top) + inner.y());
}

void TreeSatellite::OpacityChanged() {
    if (window_)
        window_->SetOpacity(state_.TreeOpacity);
}

bool TreeSatellite::eventFilter(QObject* watched, QEvent* event) {
    const bool isMenuKey = event->type() == QEvent::ContextMenu &&
                           static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard;
    const bool isKey =
        isMenuKey || event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    QWidget* receiver = window_ && window_->isVisible() ? window_->focusWidget() : nullptr;
    if (isKey && receiver && wanted_ && watched == wanted_->Panel) {
        QCoreApplication::sendEvent(receiver, event);
        return event->isAccepted();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace paneda
