#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace paneda {

// What the tree window has to do with the controls that show its trees. Controls are numbered from 1.
struct TreeSwitch {
    std::optional<int> Unload;
    // A new control, filled with this tree.
    std::optional<int> Load;
    // The control to be made visible in front of the others.
    std::optional<int> Show;

    friend bool operator==(const TreeSwitch&, const TreeSwitch&) = default;
};

// Which control of the tree window shows which tree. A tree that has been opened stays open until it is
// dropped, and the number of its control is never used again.
class OpenTrees {
public:
    // Drops `removeTree`, then shows `showTree`, which is opened if it is not open; an empty name means none.
    // A tree that is opened in a call that also drops one is not brought to the front.
    TreeSwitch RefreshTree(const QString& showTree, const QString& removeTree);

    // The control of a tree; nothing when it is not open.
    std::optional<int> ControlOf(const QString& tree) const;

    // By control, the first being 1. A dropped tree leaves a mark, which keeps the numbers of the others.
    const QStringList& Names() const { return names_; }

private:
    QStringList names_;
};

} // namespace paneda
