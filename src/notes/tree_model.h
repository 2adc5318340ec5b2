#pragma once

#include "core/files/disk_work.h"
#include "notes/tree_level.h"
#include "notes/tree_node.h"
#include "notes/tree_store.h"

#include <QHash>
#include <QString>

#include <utility>
#include <vector>

namespace paneda {

// How the view of a tree learns of changes. `position` is a place in the list of rows, from 0; `row` a
// RowIndex.
class TreeListener {
public:
    virtual ~TreeListener() = default;

    // All rows were read again; the rows from before do not exist any more.
    virtual void TreeLoaded() {}
    virtual void RowsAdded(int /*position*/, int /*count*/) {}
    // `rows` were at `position` and below; their numbers may be used again.
    virtual void RowsRemoved(int /*position*/, const std::vector<int>& /*rows*/) {}
    // Text, icon or expand box of a row.
    virtual void RowChanged(int /*row*/) {}
};

enum class RefreshOutcome {
    Shown,
    OfferFirstNote, // the content folder is there and has no node
    FolderNotFound, // see NotFoundText
};

// The visible rows of one tree, top to bottom, depth first. A collapsed branch is not in memory, and
// expansion is stored nowhere. The disk is read at a load and at an expansion only.
class TreeModel {
public:
    // Twips.
    static constexpr int RowHeight = 270;
    static constexpr int TopMargin = 60;   // top of the first row
    static constexpr int IconOffset = 270; // from expand box to icon, and from icon to label
    static constexpr int Indent = 240;     // of a level

    // `appPath` in the stored form.
    explicit TreeModel(QString appPath) : appPath_(std::move(appPath)) {}

    void SetListener(TreeListener* listener) { listener_ = listener; }
    // Reads the levels from now on. Until it has returned, the rows are those from before.
    void SetDiskWork(DiskWork work) { work_ = std::move(work); }

    // Takes a tree and reads its top level. `treeIndex` is the number of the control that shows it.
    void Open(const QString& treeName, const TreeSettings& settings, int treeIndex);

    const QString& TreeName() const { return treeName_; }
    // The content folder as the host names it.
    const QString& TreePath() const { return settings_.ContentFolder; }
    // The same, with links behind it refused.
    DiskPath ContentFolder() const { return DiskPath::Below(TreePath(), TreePath()); }
    int TreeIndex() const { return treeIndex_; }
    const TreeSettings& Settings() const { return settings_; }
    const QString& AppPath() const { return appPath_; }
    const TreeNodeList& Nodes() const { return nodes_; }
    const std::vector<int>& FreeRows() const { return freeRows_; }
    int SelectedRow() const { return selectedRow_; } // -1 for none
    // Tool tip of the canvas: how to begin, for an empty tree.
    QString CanvasTip() const;

    // Position of a row; -1 when it is not shown.
    int PositionOf(int row) const;
    // The row, other than `exceptRow`, of a node by its folder; -1 when it is not shown.
    int RowOf(const QString& relativePath, const QString& folder, int exceptRow = -1) const;
    // The node of a row; nothing when it is not shown. Valid until the next change.
    const TreeNode* Find(int row) const;
    DiskPath NodeFolder(const TreeNode& node) const;

    // Twips.
    static int RowTop(int position) { return TopMargin + position * RowHeight; }
    static int IconLeft(int level) { return IconOffset + level * Indent; }
    int LastTop() const; // of the last row; TopMargin without rows

    void SelectRow(int row) { selectedRow_ = row; }

    // Reads the top level again; nothing is expanded after it.
    void LoadTree();
    // What a press of the right button on the empty canvas does; the caller has closed the note window.
    RefreshOutcome Refresh();
    QString NotFoundText() const;

    void ExpandNode(int row);
    void CollapseNode(int row);
    void ToggleNode(int row);
    // Expands what a node lies in and returns its row; -1 when it is not there.
    int Reveal(const QString& relativePath, const QString& folder);

    // Changes that follow one on the disk.

    // Puts a node in below, above, or as the last child of a shown row, or first for a row of -1, and returns
    // its row. Fills RowIndex, RelativePath, Level and PathLabel. A target without children becomes expanded;
    // one that is collapsed must be expanded before.
    int EnterNode(TreeNode node, int targetRow, NodePosition position);
    // Takes a node and what is shown below it off the list; a parent that has no other child loses its box.
    void RemoveNode(int row);
    // New name, description, type and link of a node.
    void ChangeNode(int row, const TreeNode& changed);
    // Shows a node that was put on the disk by another tree, at the place that its Sort gives it. If its
    // level is not expanded, its parent only gets an expand box.
    void EnterInOrder(const TreeNode& node, const QString& relativePath);
    // New texts of the nodes of a level, by folder.
    void ChangeSorts(const QString& relativePath, const QHash<QString, QString>& sorts);

private:
    TreeNodeList ReadLevel(const LevelPlace& place) const;
    int TakeRow(int rowsInUse);
    // Position after a node and all that is shown of its branch.
    int BehindBranch(int position) const;
    // Position of the node whose children have this relative path; -1 when it is not shown.
    int PositionOfParent(const QString& relativePath) const;
    void RemoveRange(int begin, int end);
    void SetState(int position, BranchState state);

    TreeListener& Listener() { return listener_ ? *listener_ : nobody_; }

    QString appPath_;
    DiskWork work_;
    QString treeName_;
    TreeSettings settings_;
    int treeIndex_ = 0;
    TreeNodeList nodes_;
    std::vector<int> freeRows_;
    int selectedRow_ = -1;
    bool isEmpty_ = false; // not until it has been read
    TreeListener nobody_;
    TreeListener* listener_ = nullptr;
};

} // namespace paneda
