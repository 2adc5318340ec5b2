#pragma once

#include "notes/tree_node.h"

#include <QString>

#include <functional>
#include <vector>

namespace paneda {

// Looks for nodes of a tree by their texts, also for those in branches that are not expanded.

// A node by the place of its folder; see TreeNode.
struct TreeHit {
    QString RelativePath;
    QString Folder;

    friend bool operator==(const TreeHit&, const TreeHit&) = default;
};

// What can be found in a tree, as it was when it was read.
struct TreeIndex {
    struct Entry {
        TreeHit Place;
        QString Name;
        QString Description;
    };
    std::vector<Entry> Entries; // top to bottom, as if all branches were expanded
};

// Reads every node of a tree, which takes seconds where the disk is slow. Touches nothing but the disk, so it
// may run on any thread. `stop` is asked once for each level: true ends the reading, with what was read.
TreeIndex ReadTreeIndex(const QString& contentFolder, const QString& appPath,
                        const std::function<bool()>& stop = {});

// The nodes that hold each of the words of `text` in name or description, whatever the case of their letters,
// top to bottom. None for a text of blanks.
std::vector<TreeHit> FindInTree(const TreeIndex& index, const QString& text);

// Typing in the list: the position of the next row, from `from` on and round the end, whose name begins with
// what was typed; -1 for none. `from` itself counts once more than one letter was typed, so that a name can
// be typed on. One letter typed several times goes from one such name to the next.
int NextByFirstLetters(const TreeNodeList& nodes, int from, const QString& typed);

} // namespace paneda
