#pragma once

#include "notes/rtf/read/table_grid.h"

class QTextCursor;
class QTextTable;

namespace paneda {

// Puts an empty table of the grid's shape in at the cursor, with the look and the properties of its cells.
QTextTable* InsertRtfTable(QTextCursor& cursor, const RtfTable& table, const RtfGrid& grid,
                           const RtfTables& tables);

} // namespace paneda
