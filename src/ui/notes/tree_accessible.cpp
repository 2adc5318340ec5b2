#include "ui/notes/tree_accessible.h"

#include "ui/notes/tree_actions.h"
#include "ui/notes/ucTree.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace paneda {

namespace {

// One row. It is known by its number, since its position changes.
class RowInterface : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    RowInterface(ucTree& tree, int row) : tree_(&tree), row_(row) {}

    bool isValid() const override { return tree_ && Node(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return tree_ ? QAccessible::queryAccessibleInterface(tree_.data()) : nullptr;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::TreeItem; }

    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect rect = tree_->RowRect(Position());
        return {tree_->mapToGlobal(rect.topLeft()), rect.size()};
    }

    QString text(QAccessible::Text kind) const override {
        const TreeNode* node = tree_ ? Node() : nullptr;
        if (!node)
            return {};
        if (kind == QAccessible::Name)
            return node->Name;
        if (kind == QAccessible::Description)
            return node->Description;
        // Levels count from 1 for those who read them.
        return kind == QAccessible::Value ? QString::number(node->Level + 1) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    QAccessible::State state() const override {
        QAccessible::State state;
        const TreeNode* node = tree_ ? Node() : nullptr;
        if (!node) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.focusable = true;
        state.selected = tree_->Model().SelectedRow() == row_;
        state.focused = state.selected && tree_->hasFocus();
        state.expandable = node->ExpandState != BranchState::Leaf;
        state.expanded = node->ExpandState == BranchState::Expanded;
        state.collapsed = node->ExpandState == BranchState::Collapsed;
        state.offscreen = !tree_->rect().intersects(tree_->RowRect(Position()));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override {
        QStringList names{pressAction(), setFocusAction()};
        if (isValid() && Node()->ExpandState != BranchState::Leaf)
            names.append(toggleAction());
        return names;
    }
    void doAction(const QString& action) override {
        if (!isValid())
            return;
        if (action == setFocusAction()) {
            tree_->SelectRow(row_);
            tree_->ScrollTo(row_);
        } else if (action == toggleAction()) {
            tree_->Actions().ToggleNode(row_);
        } else if (action == pressAction()) {
            tree_->Actions().Open(row_);
        }
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    int Row() const { return row_; }

private:
    const TreeNode* Node() const { return tree_->Model().Find(row_); }
    int Position() const { return tree_->Model().PositionOf(row_); }

    QPointer<ucTree> tree_;
    int row_;
};

// The tree: its rows are its children, from top to bottom.
class TreeInterface : public QAccessibleWidget {
public:
    explicit TreeInterface(ucTree& tree) : QAccessibleWidget(&tree, QAccessible::Tree), tree_(tree) {}
    ~TreeInterface() override {
        for (const QAccessible::Id id : std::as_const(rows_))
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return int(tree_.Model().Nodes().size()); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount())
            return nullptr;
        const int row = tree_.Model().Nodes()[std::size_t(index)].RowIndex;
        const auto known = rows_.constFind(row);
        if (known != rows_.constEnd())
            return QAccessible::accessibleInterface(*known);
        auto* made = new RowInterface(tree_, row);
        rows_.insert(row, QAccessible::registerAccessibleInterface(made));
        return made;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* row = dynamic_cast<const RowInterface*>(child);
        return row ? tree_.Model().PositionOf(row->Row()) : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(tree_.SpotAt(tree_.mapFromGlobal(QPoint(x, y))).Position);
    }
    QAccessibleInterface* focusChild() const override {
        return child(tree_.Model().PositionOf(tree_.Model().SelectedRow()));
    }

private:
    ucTree& tree_;
    mutable QHash<int, QAccessible::Id> rows_; // those that were asked for
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* tree = qobject_cast<ucTree*>(object);
    return tree ? new TreeInterface(*tree) : nullptr;
}

} // namespace

void RegisterTreeAccessibility() {
    static const bool once = [] {
        QAccessible::installFactory(MakeInterface);
        return true;
    }();
    (void)once;
}

void AnnounceTreeRow(ucTree& tree, int position) {
    if (!QAccessible::isActive() || position < 0)
        return;
    QAccessibleEvent event(&tree, QAccessible::Focus);
    event.setChild(position);
    QAccessible::updateAccessibility(&event);
}

} // namespace paneda
