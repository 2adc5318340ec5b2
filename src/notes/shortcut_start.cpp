#include "notes/shortcut_start.h"

#include "core/text/text_rules.h"
#include "notes/tree_store.h"

namespace paneda {

LaunchRequest DecideNodeStart(const TreeNode& node, const QString& appPath, const QString& browser) {
    const NodeLink& link = node.LinkData;
    if (node.Type == kUrlNode)
        return DecideBrowser(link.Target, browser, node.Name);
    const QString target = ResolveStoredPath(link.Target, appPath);
    if (node.Type != kFileNode || target.isEmpty())
        return {};
    return {LaunchRequest::Action::OpenTarget, target, link.Parameter,
            IfEmpty(link.StartIn, FolderOfTarget(target)), ShowCommandOf(link.WindowState)};
}

} // namespace paneda
