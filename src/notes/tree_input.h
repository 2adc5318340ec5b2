#pragma once

#include "notes/tree_node.h"

namespace paneda {

// What presses and keys in a tree mean.

// What of a row was pressed. NewLink is no press: a shortcut or favorite has just been added.
enum class PressOrigin { Icon, Label, NewLink };
enum class PressButton { Left, Right, Other };

// What follows when the row has been selected.
enum class PressAction {
    SelectOnly,
    Start,        // the target of a shortcut or the address of a favorite
    OpenNote,     // which a shortcut and a favorite have too
    ShowNodeMenu, // the note window is closed before
    ShowMoveMenu,
};

// `isMoving`: a node waits to be placed.
PressAction DecidePress(PressOrigin origin, PressButton button, const QString& type, bool isMoving);

enum class TreeKey { Up, Down, Home, End, PageUp, PageDown, Left, Right };

struct KeyStep {
    int Position = -1;   // of the row that is selected then; -1 for none
    bool Toggle = false; // the row's branch is opened or closed

    friend bool operator==(const KeyStep&, const KeyStep&) = default;
};

// From a position, -1 for none. Left closes an open branch and leads from any other node to its parent; Right
// opens a closed branch and leads from an open one to its first child.
KeyStep DecideKey(const TreeNodeList& nodes, int position, TreeKey key, int pageRows);

} // namespace paneda
