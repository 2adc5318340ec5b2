#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

namespace paneda {

// The texts that order the nodes of a level. They are compared as texts, so a number has ten digits. One more
// digit behind a point is used for a moment, until the renumbering at the end of the same operation.

// Where a node goes, seen from its target. The numbers are those of the menus.
enum class NodePosition { Below = 1, Above = 2, Child = 3 };

// "0001000000" for a million; a half rounds away from 0.
QString FormatSort(double value);

// The text next to `base` among the texts of a level, on the side where a node is to come; the highest of all
// for a child. Where there is none: "A", which is above every number, below the base, else "0".
QString NeighbourSort(NodePosition position, const QString& base, const QStringList& sorts);

struct SortChoice {
    QString Sort;
    // There is no room left between the two, or no higher number: the whole level must be renumbered.
    bool Renumber = false;
};

// The text of a node that is to come between `base` and its neighbour.
SortChoice ChooseSort(NodePosition position, const QString& base, const QString& neighbour);

// Texts for this many nodes, spaced by a million; closer where that would need more than ten digits.
QStringList EvenSorts(std::size_t count);

struct SortWrite {
    std::size_t Index = 0;
    QString Sort;
};

// The writes that turn the texts of a level (in ascending order) into the wanted ones (in strictly ascending
// order). They are ordered so that the nodes keep their order after each single write: first the texts that
// become higher, from the last node to the first; then those that become lower, from the first node to the
// last. When a text becomes higher, all behind it are higher still: those that rise have their new text
// already, and those that fall have their old one, which is above their new one. For a text that becomes
// lower the same holds the other way round. Texts that do not change are not written.
std::vector<SortWrite> PlanRenumber(const QStringList& current, const QStringList& wanted);

} // namespace paneda
