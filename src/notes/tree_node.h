#pragma once

#include "notes/sort_value.h"

#include <QString>

#include <vector>

namespace paneda {

// What a shortcut or favorite leads to. All empty for a note.
struct NodeLink {
    // In a TreeNode: of a "File" in the absolute stored form or a host path, of a "URL" the address as
    // written. In a PendingNode: as typed.
    QString Target;
    QString Parameter;
    QString StartIn;
    QString WindowState; // "Normal Window", "Minimized", "Maximized"

    friend bool operator==(const NodeLink&, const NodeLink&) = default;
};

enum class BranchState {
    Leaf,      // no children and no expand box; "X"
    Collapsed, // "0"
    Expanded,  // "1"
};

inline const QString kFileNode = QStringLiteral("File");
inline const QString kUrlNode = QStringLiteral("URL");

// One visible row of a tree.
struct TreeNode {
    QString Name;
    QString Sort;   // exactly as stored
    QString Folder; // name of the node's folder, six digits
    // Identity of the row while it is shown, from 1; unrelated to its place in the list.
    int RowIndex = 0;
    // Path of the parent's folder relative to the content folder; begins and ends with a backslash.
    QString RelativePath = QStringLiteral("\\");
    int Level = 0;
    BranchState ExpandState = BranchState::Leaf;
    // The tree's name and those of the ancestors, between " \ ".
    QString PathLabel;
    QString Description;
    QString Type; // "" for a note, "File" or "URL"
    NodeLink LinkData;

    friend bool operator==(const TreeNode&, const TreeNode&) = default;
};

// Tool tip of a row: the name, with the description behind it if there is one.
inline QString NodeTip(const TreeNode& node) {
    return node.Description.isEmpty() ? node.Name : node.Name + QStringLiteral(" - ") + node.Description;
}

// In PendingNode::IconSource: the node keeps its icon.
inline const QString kKeepIcon = QStringLiteral("NO CHANGE");

// What the user has entered into a node dialog.
struct PendingNode {
    QString Name;
    // Host path of a picture; empty for none, kKeepIcon for no change.
    QString IconSource;
    NodePosition Position = NodePosition::Below;
    QString Description;
    QString Type;
    NodeLink LinkData;
};

// A node that waits to be placed, and the tree that it comes from.
struct MovingNode {
    TreeNode Node;
    int TreeIndex = 0;
};

using TreeNodeList = std::vector<TreeNode>;

} // namespace paneda
