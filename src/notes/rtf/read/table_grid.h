#pragma once

#include "notes/rtf/read/content.h"

#include <optional>
#include <vector>

namespace paneda {

// A cell of a table's grid, with the cells of the source that it is made of.
struct RtfGridCell {
    int Row = 0;
    int Column = 0;
    int Rows = 1;
    int Columns = 1;
    // Right edge in twips, as in the note.
    int Right = 0;
    const RtfCellDefinition* Definition = nullptr;
    std::vector<RtfItems*> Contents;
};

// In RTF each row has its own cell edges; Qt's tables are one grid, in which cells span rows and columns.
struct RtfGrid {
    // Twips, growing; one more than there are columns.
    std::vector<int> Edges;
    std::vector<RtfGridCell> Cells;

    int ColumnCount() const { return int(Edges.size()) - 1; }
};

// Nothing if the grid would be far larger than the number of cells in it.
std::optional<RtfGrid> MakeRtfGrid(RtfTable& table);

} // namespace paneda
