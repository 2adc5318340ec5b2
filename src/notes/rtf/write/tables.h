#pragma once

#include <QByteArray>
#include <QList>
#include <QTextTableCell>

class QTextTable;

namespace paneda {

class RtfNumbers;

// A cell of one row. In RTF a cell that spans several rows is repeated in each of them.
struct RtfRowCell {
    QTextTableCell Cell;
    // The cell began in a row above and is empty here.
    bool IsContinued = false;
    // Right edge in twips.
    int Right = 0;
};

// The cells of a row from left to right; each Right is greater than the one before.
QList<RtfRowCell> CellsOfRow(const QTextTable& table, int row);

// \trowd and what follows it, with a \cellx for each of the cells.
QByteArray RowDefinition(const QTextTable& table, int row, const QList<RtfRowCell>& cells,
                         RtfNumbers& numbers);

} // namespace paneda
