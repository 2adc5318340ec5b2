#pragma once

#include "notes/tree_node.h"

namespace paneda {

class TreeModel;

// The window of a note, as the tree sees it.
class NoteWindow {
public:
    virtual ~NoteWindow() = default;

    // Opens the note of a node, which every node has. Another note that is open is saved before.
    virtual void Open(const TreeModel& tree, const TreeNode& node) = 0;
    // Saves and closes it, if it is open.
    virtual void Close() = 0;
    // The node has got another name. Without effect if its note is not open.
    virtual void ShowName(const TreeModel& tree, const TreeNode& node) = 0;
};

} // namespace paneda
