#pragma once

#include "core/settings/app_state.h"
#include "notes/tree_node.h"

#include <QString>

#include <optional>
#include <vector>

class QMimeData;

namespace paneda {

// A file or web address that was dropped on a tree.
struct DroppedAddress {
    QString HostPath; // of a file or folder; empty for a web address
    QString Address;
    QString Title; // of the page; empty if the giver does not say
};

// Of what is dragged. Addresses that a browser would not be given are left out.
std::vector<DroppedAddress> DroppedAddresses(const QMimeData& data);

// The shortcut or favorite that it becomes. Nothing where no name can be made of it.
std::optional<PendingNode> DroppedNode(const DroppedAddress& dropped, NodePosition position,
                                       const AppState& state);

} // namespace paneda
