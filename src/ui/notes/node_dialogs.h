#pragma once

#include "core/disk/disk_path.h"
#include "notes/tree_node.h"

#include <QPoint>
#include <QString>

#include <optional>

class QWidget;

namespace paneda {

// A node that the user is asked about.
struct NodeQuestion {
    QWidget* Window = nullptr;      // the tree window, which the dialog belongs to
    QString Type = {};              // "" for a note, "File" or "URL"
    const TreeNode* Node = nullptr; // the node to be edited; null for a new one
    DiskPath NodeFolder = {};       // of the edited node
    NodePosition Position = NodePosition::Below;
    bool IsFirst = false; // the first note of an empty tree
    QPoint Mouse = {};    // where the mouse was pressed, pixels of the desktop
};

// The dialogs that a tree opens. Each returns when the user has closed it.
class NodeDialogs {
public:
    virtual ~NodeDialogs() = default;

    // What the user has entered; nothing when the dialog was cancelled.
    virtual std::optional<PendingNode> Ask(const NodeQuestion& question) = 0;

    // Lets the user choose the tree that is shown, from the list of all trees.
    virtual void ShowTreeList(QWidget& window, const QPoint& mouse) = 0;

    // Fetches the icon of the site that a favorite leads to into a file of the tree. Returns when it is done
    // or the user has ended it; a site without an icon leaves no file.
    virtual void FetchFavicon(QWidget& window, const QString& address, const DiskPath& file) = 0;
};

} // namespace paneda
