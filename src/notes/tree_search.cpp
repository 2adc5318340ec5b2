#include "notes/tree_search.h"

#include "notes/tree_level.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

bool Holds(const TreeIndex::Entry& entry, const QString& word) {
    return entry.Name.contains(word, Qt::CaseInsensitive) ||
           entry.Description.contains(word, Qt::CaseInsensitive);
}

int NextBegin(const TreeNodeList& nodes, int first, const QString& begin) {
    const int count = int(nodes.size());
    for (int i = 0; i < count; ++i) {
        const int position = (first + i) % count;
        if (nodes[std::size_t(position)].Name.startsWith(begin, Qt::CaseInsensitive))
            return position;
    }
    return -1;
}

} // namespace

TreeIndex ReadTreeIndex(const QString& contentFolder, const QString& appPath,
                        const std::function<bool()>& stop) {
    TreeIndex index;
    // Nodes whose turn has not come, the next one last.
    TreeNodeList waiting;
    const auto takeLevel = [&](const LevelPlace& place) {
        TreeNodeList level = LoadLevel(place, appPath);
        std::move(level.rbegin(), level.rend(), std::back_inserter(waiting));
    };
    takeLevel({contentFolder, QStringLiteral("\\"), 0, {}});
    while (!waiting.empty()) {
        const TreeNode node = std::move(waiting.back());
        waiting.pop_back();
        index.Entries.push_back({{node.RelativePath, node.Folder}, node.Name, node.Description});
        if (node.ExpandState == BranchState::Leaf)
            continue;
        if (stop && stop())
            break;
        takeLevel(ChildPlace(contentFolder, node));
    }
    return index;
}

std::vector<TreeHit> FindInTree(const TreeIndex& index, const QString& text) {
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    std::vector<TreeHit> hits;
    for (const TreeIndex::Entry& entry : index.Entries) {
        if (!words.isEmpty() && std::all_of(words.begin(), words.end(),
                                            [&entry](const QString& word) { return Holds(entry, word); }))
            hits.push_back(entry.Place);
    }
    return hits;
}

int NextByFirstLetters(const TreeNodeList& nodes, int from, const QString& typed) {
    if (nodes.empty() || typed.isEmpty())
        return -1;
    const int first = std::max(from, 0);
    if (typed.size() > 1) {
        if (const int found = NextBegin(nodes, first, typed); found >= 0)
            return found;
    }
    const bool isOneLetter = typed.count(typed.front(), Qt::CaseInsensitive) == typed.size();
    return isOneLetter ? NextBegin(nodes, from + 1, typed.first(1)) : -1;
}

} // namespace paneda
