#include "notes/rtf/read/table_grid.h"

#include <algorithm>
#include <map>

namespace paneda {

namespace {

// Twips. Edges nearer to each other than this are taken for one, since programs round them.
constexpr int kSameEdge = 10;
constexpr int kDefaultWidth = 1440;
constexpr qint64 kMaxGridCells = 300000;
// For each cell that spans others, Qt goes through the whole grid again.
constexpr qint64 kMaxSpanWork = 50000000;

// A cell of a row, its merged neighbours included.
struct Placed {
    int Left = 0;
    int Right = 0;
    const RtfCellDefinition* Definition = nullptr;
    std::vector<RtfItems*> Contents;
};

using PlacedRow = std::vector<Placed>;

PlacedRow PlaceRow(RtfRow& row) {
    static const RtfCellDefinition kNone;
    const std::vector<RtfCellDefinition>& definitions = row.Definition->Cells;
    PlacedRow placed;
    int left = row.Definition->Left;
    for (std::size_t i = 0; i < row.Cells.size(); ++i) {
        const RtfCellDefinition& definition = i < definitions.size() ? definitions[i] : kNone;
        int right = i < definitions.size() ? definition.Right : left + kDefaultWidth;
        right = std::max(right, left + 1);
        if (definition.MergeNext && !placed.empty()) {
            placed.back().Right = right;
            placed.back().Contents.push_back(&row.Cells[i]);
        } else {
            placed.push_back({left, right, &definition, {&row.Cells[i]}});
        }
        left = right;
    }
    return placed;
}

std::vector<int> EdgesOf(const std::vector<PlacedRow>& rows) {
    std::vector<int> edges;
    for (const PlacedRow& row : rows) {
        for (const Placed& cell : row)
            edges.insert(edges.end(), {cell.Left, cell.Right});
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    return edges;
}

std::vector<int> JoinNearEdges(const std::vector<int>& edges) {
    std::vector<int> joined;
    for (const int edge : edges)
        if (joined.empty() || edge - joined.back() > kSameEdge)
            joined.push_back(edge);
    return joined;
}

// Number of the edge at or before a place.
int EdgeAt(const std::vector<int>& edges, int place) {
    return int(std::upper_bound(edges.begin(), edges.end(), place) - edges.begin()) - 1;
}

bool KeepsAllCells(const std::vector<PlacedRow>& rows, const std::vector<int>& edges) {
    return std::all_of(rows.begin(), rows.end(), [&edges](const PlacedRow& row) {
        return std::all_of(row.begin(), row.end(), [&edges](const Placed& cell) {
            return EdgeAt(edges, cell.Left) < EdgeAt(edges, cell.Right);
        });
    });
}

bool IsEmpty(const RtfItems& items) {
    return std::all_of(items.begin(), items.end(),
                       [](const RtfItem& item) { return !item.Table && item.Paragraph.Text.isEmpty(); });
}

// Puts rows into the grid. The first and last cell of a row reach to the table's edges.
class GridMaker {
public:
    explicit GridMaker(RtfGrid& grid) : grid_(grid) {}

    void AddRow(const PlacedRow& row) {
        std::map<int, std::size_t> current;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const int column = i == 0 ? 0 : EdgeAt(grid_.Edges, row[i].Left);
            const int end = i + 1 == row.size() ? grid_.ColumnCount() : EdgeAt(grid_.Edges, row[i].Right);
            current.emplace(column, AddCell(row[i], column, end - column));
        }
        above_ = std::move(current);
        ++row_;
    }

private:
    std::size_t AddCell(const Placed& placed, int column, int columns) {
        const auto above = placed.Definition->MergeRowsNext ? above_.find(column) : above_.end();
        if (above != above_.end() && grid_.Cells[above->second].Columns == columns) {
            RtfGridCell& cell = grid_.Cells[above->second];
            ++cell.Rows;
            Append(cell, placed);
            return above->second;
        }
        RtfGridCell cell{row_, column, 1, columns, placed.Right, placed.Definition, {}};
        Append(cell, placed);
        grid_.Cells.push_back(std::move(cell));
        return grid_.Cells.size() - 1;
    }

    // What merged cells hold beyond the first is nothing as a rule.
    static void Append(RtfGridCell& cell, const Placed& placed) {
        for (RtfItems* items : placed.Contents)
            if (cell.Contents.empty() || !IsEmpty(*items))
                cell.Contents.push_back(items);
    }

    RtfGrid& grid_;
    // Cells of the row above by column.
    std::map<int, std::size_t> above_;
    int row_ = 0;
};

bool IsTooLarge(const RtfGrid& grid, qint64 rows) {
    const qint64 size = rows * grid.ColumnCount();
    const auto spans = std::count_if(grid.Cells.begin(), grid.Cells.end(), [](const RtfGridCell& cell) {
        return cell.Rows > 1 || cell.Columns > 1;
    });
    return size > kMaxGridCells || size * spans > kMaxSpanWork;
}

} // namespace

std::optional<RtfGrid> MakeRtfGrid(RtfTable& table) {
    std::vector<PlacedRow> rows;
    rows.reserve(table.Rows.size());
    for (RtfRow& row : table.Rows)
        rows.push_back(PlaceRow(row));
    RtfGrid grid;
    grid.Edges = EdgesOf(rows);
    if (std::vector<int> joined = JoinNearEdges(grid.Edges); KeepsAllCells(rows, joined))
        grid.Edges = std::move(joined);
    GridMaker maker(grid);
    for (const PlacedRow& row : rows)
        maker.AddRow(row);
    if (IsTooLarge(grid, qint64(rows.size())))
        return std::nullopt;
    return grid;
}

} // namespace paneda
