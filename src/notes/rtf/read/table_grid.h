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
    // Twips: the right edge as the note tells it.
    int Right = 0;
    const RtfCellDefinition* Definition = nullptr;
    std::vector<RtfItems*> Contents;
};

// RTF's rows have edges of their own each; Qt's tables are a grid with cells that span.
struct RtfGrid {
    // Twips, growing; one more than there are columns.
    std::vector<int> Edges;
    std::vector<RtfGridCell> Cells;

    int ColumnCount() const { return int(Edges.size()) - 1; }
};

// Nothing when the grid would be too large for the cells that are in it.
std::optional<RtfGrid> MakeRtfGrid(RtfTable& table);

} // namespace paneda
