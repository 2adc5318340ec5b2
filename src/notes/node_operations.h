#pragma once

#include "core/files/disk_work.h"
#include "core/files/file_io.h"
#include "core/files/ini_text.h"
#include "core/prompts.h"
#include "notes/node_files.h"
#include "notes/tree_model.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace paneda {

enum class NodeMode { Add, Move };
enum class DeleteMode { AskAndDelete, RowsOnly };

// What the menu of a pending move gives; the numbers are those of its items.
enum class MoveChoice { None = -1, Cancel = 0, Below = 1, Above = 2, Child = 3 };

// What the dialogs and the trees of a process hand to one another.
struct NodeTransfer {
    std::optional<PendingNode> Pending; // nothing after a dialog was cancelled
    std::optional<MovingNode> Moving;   // from "Move" until the move ends
};

// What the operations need from outside. Functions that are empty are not called.
struct NodeServices {
    Prompts& Ask;
    // The open tree of this number; null when it has been closed.
    std::function<TreeModel*(int treeIndex)> TreeOf;
    // Saves and closes the note window, before the folder that it writes to is moved or removed.
    std::function<void()> CloseNote;
    // Fetches the icon of an address into a file of the tree.
    std::function<void(const QString& address, const DiskPath& file)> FetchFavicon;
    std::function<QDateTime()> Now = &QDateTime::currentDateTimeUtc;
    // Runs what reads and writes the disk, which may take seconds; empty: it runs at once.
    DiskWork Work = {};
};

// Changes to one tree, on the disk and on its list of rows. Each failure is shown to the user with path and
// reason. After an operation that stopped halfway the list is read again from the disk.
//
// A row may be out of date: another user, or another open tree with the same content folder, may have moved
// its node, and another node may have got the number of its folder. So a node is edited, moved and deleted
// only if its folder still has the name and the Sort of the row.
class NodeOperations {
public:
    NodeOperations(TreeModel& tree, NodeTransfer& transfer, NodeServices services)
        : tree_(tree), transfer_(transfer), services_(std::move(services)) {}

    // Adds the pending node, or places the moving one, at a row; -1 is the empty tree. Returns the new row,
    // -1 on failure. The old row of a moved node stays.
    int AddOrMoveNode(int targetRow, NodeMode mode);

    // Changes a node to what its dialog has left in the transfer record. A link is written when the icon is
    // not kept or the type is another one. False when nothing was changed.
    bool EditNode(int row);

    // AskAndDelete asks, then deletes on the disk; RowsOnly takes the rows off the list. False when they
    // stay.
    bool DeleteNode(int row, DeleteMode mode);

    // Picks a node up.
    void StartMove(int row);
    // Ends a pending move at a row, or leaves it pending without a choice. Returns the new row, -1 for none.
    // Both trees show the result, also where they have the same content folder.
    int FinishMove(int targetRow, MoveChoice choice);

private:
    // Where a node goes.
    struct Goal {
        LevelPlace Place;
        NodePosition Position = NodePosition::Below;
        QString TargetFolder; // empty without a target
        QString TargetSort;
    };

    struct Placed {
        TreeNode Node;
        SiblingScan Scan;
        bool Renumber = false;
        // What went wrong although the node is in its place.
        std::vector<FileError> Failures;
    };

    struct LevelEntry {
        QString Folder;
        QString Sort;
        bool Gone = false; // has a row but no folder
    };

    // Nothing for a row that is not shown. Expands a collapsed target that gets a child.
    std::optional<Goal> GoalOf(int targetRow, NodePosition position);
    // `moving`: a folder of this level that leaves its place; empty for none.
    static SortChoice ChooseFor(const Goal& goal, const SiblingScan& scan, const QString& moving = {});
    // Whether a node with this text comes beside its target, or behind all for a child.
    static bool ComesInPlace(const Goal& goal, const SiblingScan& scan, const QString& moving,
                             const QString& sort);
    // Whether a text is too long to be stored; if so, the user is shown which one.
    bool IsTooLong(const PendingNode& pending, bool setsLink, const QString& folder) const;
    int AddNode(int targetRow, const PendingNode& pending);
    int PlaceNode(int targetRow, const PendingNode& pending, const MovingNode& moving);
    tl::expected<Placed, FileError> AddOnDisk(const Goal& goal, const PendingNode& pending) const;
    FileResult FillNode(const DiskPath& folder, const PendingNode& pending, const IniText& properties) const;
    tl::expected<Placed, FileError> MoveOnDisk(const Goal& goal, const TreeModel& source,
                                               const TreeNode& moving) const;
    tl::expected<Placed, FileError> MoveWithinLevel(const Goal& goal, const TreeNode& moving) const;
    int PlaceMoving(TreeModel& source, int targetRow, NodePosition position);
    QString PlaceFault(const TreeModel& source, int targetRow) const;
    // Takes the old row of a moved node off a tree, and shows the new one where the tree holds its folder.
    void FollowMove(TreeModel& tree, const QString& oldFolder, int newRow) const;

    // The nodes of a level in their order, with the new one: those that are on the list, or all on the disk.
    std::vector<LevelEntry> ListedLevel(const Goal& goal, const Placed& placed, int newRow) const;
    static std::vector<LevelEntry> WholeLevel(const Goal& goal, const Placed& placed);
    FileResult Renumber(const Goal& goal, const std::vector<LevelEntry>& level, const QString& newFolder);

    void RunWork(const std::function<void()>& work) const;
    void CloseNote() const;
    void FetchFavicon(const TreeNode& node, const DiskPath& folder) const;
    void Tell(const std::vector<FileError>& failures) const;
    int Stop(const FileError& failure);

    TreeModel& tree_;
    NodeTransfer& transfer_;
    NodeServices services_;
};

} // namespace paneda
