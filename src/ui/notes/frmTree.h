#pragma once

#include "notes/open_trees.h"
#include "ui/notes/tree_services.h"

#include <QWidget>

#include <vector>

namespace paneda {

// The window of the trees, which stands in the panel where other categories have their groups. It holds one
// control for each tree that has been opened, and shows one of them.
class frmTree : public QWidget {
    Q_OBJECT

public:
    // `skinPath`: see LoadTreeLook.
    frmTree(AppState& state, const TreeServices& services, const QString& skinPath);
    ~frmTree() override;

    // Closes `removeTree`, then shows `showTree`, which is opened if it is not open; an empty name means
    // none. A tree that is opened in a call that also closes one is not brought to the front.
    void RefreshTree(const QString& showTree, const QString& removeTree);
    // Shows an empty tree, for a category that has none yet.
    void ShowNoTree();

    // Keeps the window above another one.
    void StayAbove(QWidget& panel);
    // Hides the window and deletes it, as soon as nothing is at work in it.
    void Retire();

    // The tree that is shown.
    ucTree* Current() const { return current_; }

    // Reads the colours and pictures of another skin.
    void SetSkin(const QString& skinPath);
    // A fraction, 1 for an opaque window.
    void SetOpacity(double opacity);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    ucTree* ControlOf(int treeIndex) const;
    ucTree* MakeControl(int treeIndex);
    void BringToFront(ucTree* tree);
    void DeleteClosed();

    TreeDesk desk_;
    OpenTrees open_;
    std::vector<ucTree*> trees_; // by control, the first being 0, which shows no tree; null for a closed one
    std::vector<ucTree*> closed_;
    ucTree* current_ = nullptr;
    bool isRetired_ = false;
};

} // namespace paneda
