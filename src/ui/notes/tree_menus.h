#pragma once

class QPoint;

namespace paneda {

// The pop-up menus of a tree. Each returns the number of the chosen item when it has been closed; see
// notes/node_menu.h.

// 0 without a choice. `canAsk`: there are dialogs for new nodes and properties.
int AskNodeMenu(bool canAsk, const QPoint& place);

// -1 without a choice.
int AskMoveMenu(const QPoint& place);

} // namespace paneda
