#pragma once

#include "core/panel/launch.h"
#include "notes/tree_node.h"

namespace paneda {

// What a press on the label of a node starts: the target of a shortcut, the address of a favorite. Nothing
// for a note and for a shortcut without target; a favorite whose address may not be opened is refused.
// `browser` is "default" or a program.
LaunchRequest DecideNodeStart(const TreeNode& node, const QString& appPath, const QString& browser);

} // namespace paneda
