#pragma once

#include "notes/node_operations.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace paneda::test {

// Trees with content folders in one temporary directory, open in the numbers 1, 2, ...
class TreeDesk {
public:
    StoreBuilder Store;
    FakePrompts Prompts;
    NodeTransfer Transfer;
    QStringList Fetched; // addresses, each with the file below the store
    int NotesClosed = 0;

    // Writes a node; `path` is relative to the store, "Tree/000001/000002".
    void Put(const QString& path, const QByteArray& name, const QByteArray& sort,
             const QByteArray& more = {}) const {
        Store.AddFile(path + QStringLiteral("/Properties.ini"),
                      "[Properties]\r\nName=" + name + "\r\nSort=" + sort + "\r\n" + more);
    }

    TreeModel& Open(const QString& name) {
        Store.AddFolder(name);
        TreeSettings settings;
        settings.ContentFolder = Store.Path(name);
        settings.ShownFolder = settings.ContentFolder;
        trees_.push_back(std::make_unique<TreeModel>(kAppPath));
        trees_.back()->Open(name, settings, int(trees_.size()));
        return *trees_.back();
    }

    NodeOperations Operations(TreeModel& tree) {
        NodeServices services{Prompts, {}, {}, {}};
        services.TreeOf = [this](int index) { return trees_[std::size_t(index) - 1].get(); };
        services.CloseNote = [this] { ++NotesClosed; };
        services.FetchFavicon = [this](const QString& address, const DiskPath& file) {
            Fetched.append(address + u' ' + file.Text().mid(Store.AppFolder().size() + 1));
        };
        return {tree, Transfer, services};
    }

    int Add(TreeModel& tree, int target, NodePosition position, const QString& name) {
        Transfer.Pending = PendingNode{name, {}, position, {}, {}, {}};
        return Operations(tree).AddOrMoveNode(target, NodeMode::Add);
    }

    int Move(TreeModel& from, int row, TreeModel& to, int target, MoveChoice choice) {
        Operations(from).StartMove(row);
        return Operations(to).FinishMove(target, choice);
    }

    // The row of the first node with this name.
    static int Row(const TreeModel& tree, const QString& name) {
        for (const TreeNode& node : tree.Nodes()) {
            if (node.Name == name)
                return node.RowIndex;
        }
        return 0;
    }

    static void ExpandAll(TreeModel& tree) {
        for (std::size_t i = 0; i < tree.Nodes().size(); ++i) {
            if (tree.Nodes()[i].ExpandState == BranchState::Collapsed)
                tree.ExpandNode(tree.Nodes()[i].RowIndex);
        }
    }

    // "  name sort" indented by level, "+" or "-" in front of a name with a box.
    static QStringList Rows(const TreeModel& tree) {
        QStringList rows;
        for (const TreeNode& node : tree.Nodes()) {
            const QString box = node.ExpandState == BranchState::Leaf        ? QString()
                                : node.ExpandState == BranchState::Collapsed ? QStringLiteral("+")
                                                                             : QStringLiteral("-");
            rows.append(QString(2 * node.Level, u' ') + box + node.Name + u' ' + node.Sort);
        }
        return rows;
    }

    static QStringList Names(const TreeModel& tree) {
        QStringList names;
        for (const TreeNode& node : tree.Nodes())
            names.append(node.Name);
        return names;
    }

private:
    std::vector<std::unique_ptr<TreeModel>> trees_;
};

} // namespace paneda::test
