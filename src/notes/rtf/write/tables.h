#pragma once

#include <QByteArray>
#include <QList>
#include <QTextTableCell>

class QTextTable;

namespace paneda {

class RtfNumbers;

// A cell as it stands in one row of RTF, where a cell that goes over several rows stands in each of them.
struct RtfRowCell {
    QTextTableCell Cell;
    // The cell began in a row above: here it is empty.
    bool IsContinued = false;
    // Right edge in twips.
    int Right = 0;
};

// The cells of a row from left to right, with edges that grow.
QList<RtfRowCell> CellsOfRow(const QTextTable& table, int row);

// \trowd and what follows it, with a \cellx for each of the cells.
QByteArray RowDefinition(const QTextTable& table, int row, const QList<RtfRowCell>& cells,
                         RtfNumbers& numbers);

} // namespace paneda
