#include "notes/tree_input.h"

#include <algorithm>

namespace paneda {

PressAction DecidePress(PressOrigin origin, PressButton button, const QString& type, bool isMoving) {
    if (origin == PressOrigin::NewLink)
        return PressAction::SelectOnly;
    if (isMoving)
        return PressAction::ShowMoveMenu;
    if (button == PressButton::Right)
        return PressAction::ShowNodeMenu;
    if (button != PressButton::Left)
        return PressAction::SelectOnly;
    const bool isLink = type == kFileNode || type == kUrlNode;
    return isLink && origin == PressOrigin::Label ? PressAction::Start : PressAction::OpenNote;
}

KeyStep DecideKey(const TreeNodeList& nodes, int position, TreeKey key, int pageRows) {
    const int last = int(nodes.size()) - 1;
    if (last < 0)
        return {};
    if (position < 0 || key == TreeKey::Home)
        return {key == TreeKey::End ? last : 0};
    const TreeNode& node = nodes[std::size_t(position)];
    switch (key) {
    case TreeKey::Up:
        return {std::max(position - 1, 0)};
    case TreeKey::Down:
        return {std::min(position + 1, last)};
    case TreeKey::PageUp:
        return {std::max(position - pageRows, 0)};
    case TreeKey::PageDown:
        return {std::min(position + pageRows, last)};
    case TreeKey::Left: {
        if (node.ExpandState == BranchState::Expanded)
            return {position, true};
        int parent = position;
        while (parent > 0 && nodes[std::size_t(parent)].Level >= node.Level)
            --parent;
        return {nodes[std::size_t(parent)].Level < node.Level ? parent : position};
    }
    case TreeKey::Right: {
        if (node.ExpandState == BranchState::Collapsed)
            return {position, true};
        const bool hasChild = position < last && nodes[std::size_t(position) + 1].Level > node.Level;
        return {hasChild ? position + 1 : position};
    }
    default:
        return {last};
    }
}

} // namespace paneda
