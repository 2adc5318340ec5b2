#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

namespace paneda {

// The texts that order the nodes of a level. They compare as texts, so a number has ten digits; one digit
// behind a point is a form that a renumbering takes away in the same operation.

// Where a node goes, seen from its target. The numbers are those of the menus.
enum class NodePosition { Below = 1, Above = 2, Child = 3 };

// "0001000000" for a million; a half rounds away from 0.
QString FormatSort(double value);

// The text next to `base` among the texts of a level, on the side where a node is to come; the highest of all
// for a child. Where there is none: "A", which is above every number, below the base, else "0".
QString NeighbourSort(NodePosition position, const QString& base, const QStringList& sorts);

struct SortChoice {
    QString Sort;
    // The level has no room left there, or no higher number: it must be numbered anew.
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

// The writes that turn the texts of a level, which are in ascending order, into other ones in strictly
// ascending order, in a succession that keeps the order of the nodes after every single write: those that
// rise from the last to the first, then those that fall from the first to the last. A riser is written when
// all behind it are above its new text: a riser there has its own new text already, and what falls still has
// its old one, which is higher than its new one. A faller is written when all before it are below its new
// text, for the same reasons turned about. Texts that stay are not written.
std::vector<SortWrite> PlanRenumber(const QStringList& current, const QStringList& wanted);

} // namespace paneda
