#pragma once

#include "notes/node_operations.h"

#include <QString>

namespace paneda {

// The numbers that the items of the two menus of a tree set, and what they stand for.

enum class NodeCommand { None, Add, Edit, Move, Delete };

struct NodeMenuChoice {
    NodeCommand Command = NodeCommand::None;
    // Of a node to be added: "" for a note, "File", "URL"; and its place seen from the selected one.
    QString Type = {};
    NodePosition Position = NodePosition::Below;

    friend bool operator==(const NodeMenuChoice&, const NodeMenuChoice&) = default;
};

// The menu of a node. The number of an item that adds one is 300 for a note, 200 for a shortcut and 100 for a
// favorite, plus 0 for above, 1 for a child and 2 for below; 2 edits, 3 moves, 99 deletes. Every other number
// is no choice.
NodeMenuChoice DecodeNodeMenu(int menuChoice);

// The menu of a pending move. A number that is none of its items is no choice, which leaves the move pending.
MoveChoice DecodeMoveMenu(int menuChoice);

} // namespace paneda
