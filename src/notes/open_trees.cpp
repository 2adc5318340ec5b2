#include "notes/open_trees.h"

namespace paneda {

namespace {

const QString kDropped = QStringLiteral("XXDELETED TREEXX");

} // namespace

std::optional<int> OpenTrees::ControlOf(const QString& tree) const {
    const qsizetype at = tree == kDropped ? -1 : names_.indexOf(tree);
    return at < 0 ? std::nullopt : std::optional(int(at) + 1);
}

TreeSwitch OpenTrees::RefreshTree(const QString& showTree, const QString& removeTree) {
    TreeSwitch result;
    if (!removeTree.isEmpty()) {
        result.Unload = ControlOf(removeTree);
        if (result.Unload)
            names_[*result.Unload - 1] = kDropped;
    }
    if (showTree.isEmpty())
        return result;
    if (const auto open = ControlOf(showTree)) {
        result.Show = open;
        return result;
    }
    names_.append(showTree);
    result.Load = int(names_.size());
    if (removeTree.isEmpty())
        result.Show = result.Load;
    return result;
}

} // namespace paneda
