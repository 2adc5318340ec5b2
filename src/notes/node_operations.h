#pragma once

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
    // Saves and closes the note window, before the folder that it writes to goes.
    std::function<void()> CloseNote;
    // Fetches the icon of an address into a file.
    std::function<void(const QString& address, const QString& file)> FetchFavicon;
    std::function<QDateTime()> Now = &QDateTime::currentDateTimeUtc;
};

// Changes to one tree, on the disk and on its list of rows. What fails is told to the user with path and
// reason; an operation that stopped short leaves the list as read anew from the disk.
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
    int FinishMove(int targetRow, MoveChoice choice);

private:
    // Where a node goes.
    struct Goal {
        LevelPlace Place;
        NodePosition Position = NodePosition::Below;
        QString TargetFolder; // empty without a target
        QString TargetSort;
        TreeModel* Source = nullptr; // of a move
    };

    struct Placed {
        TreeNode Node;
        SiblingScan Scan;
        bool Renumber = false;
        // The node is in its place all the same.
        std::vector<FileError> Failures;
    };

    struct LevelEntry {
        QString Folder;
        QString Sort;
        int Row = -1;      // -1 when it is not on the list
        bool Gone = false; // on the list alone
    };

    Goal GoalOf(int targetRow, NodePosition position) const;
    static SortChoice ChooseFor(const Goal& goal, const SiblingScan& scan);
    tl::expected<Placed, FileError> AddOnDisk(const Goal& goal, const PendingNode& pending);
    tl::expected<Placed, FileError> MoveOnDisk(const Goal& goal, const TreeNode& moving);
    tl::expected<Placed, FileError> MoveWithinLevel(const Goal& goal, const TreeNode& moving);
    int PlaceMoving(TreeModel& source, int targetRow, NodePosition position);
    // The row that a moved node leaves; -1 when it is not shown.
    int OldRow(const TreeModel& source, int newRow) const;
    QString PlaceFault(const TreeModel& source, int targetRow) const;

    // The nodes of a level in their order, with the new one: those that are on the list, or all on the disk.
    std::vector<LevelEntry> ListedLevel(const Goal& goal, const Placed& placed, int newRow) const;
    std::vector<LevelEntry> WholeLevel(const Goal& goal, const Placed& placed, int newRow) const;
    FileResult Renumber(const QString& levelFolder, const std::vector<LevelEntry>& level, int newRow);

    void CloseNote() const;
    void FetchFavicon(const TreeNode& node, const QString& folder) const;
    void Tell(const std::vector<FileError>& failures) const;
    int Stop(const FileError& failure);

    TreeModel& tree_;
    NodeTransfer& transfer_;
    NodeServices services_;
};

} // namespace paneda
