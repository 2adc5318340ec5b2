#include "notes/rtf/read/table_build.h"

#include <QTextCursor>
#include <QTextTable>

#include <algorithm>
#include <array>

namespace paneda {

namespace {

// Twips: gap between a cell's edge and its text where nothing tells another.
constexpr qreal kCellPadding = 60 / kRtfTwipsPerPixel;

QTextTableFormat TableFormat(const RtfTable& table, const RtfGrid& grid) {
    QTextTableFormat format;
    format.setCellSpacing(0);
    format.setCellPadding(kCellPadding);
    format.setBorderCollapse(true);
    format.setBorder(0);
    format.setMargin(0);
    format.setLeftMargin(std::max(grid.Edges.front(), 0) / kRtfTwipsPerPixel);
    format.setAlignment(table.Rows.front().Definition->Alignment);
    const auto firstPlain = std::find_if(table.Rows.begin(), table.Rows.end(),
                                         [](const RtfRow& row) { return !row.Definition->IsHeader; });
    format.setHeaderRowCount(int(firstPlain - table.Rows.begin()));
    QList<QTextLength> widths;
    for (std::size_t i = 1; i < grid.Edges.size(); ++i)
        widths.append(
            QTextLength(QTextLength::FixedLength, (grid.Edges[i] - grid.Edges[i - 1]) / kRtfTwipsPerPixel));
    format.setColumnWidthConstraints(widths);
    return format;
}

QTextFrameFormat::BorderStyle BorderStyle(const RtfBorder& border) {
    if (border.IsDouble)
        return QTextFrameFormat::BorderStyle_Double;
    if (border.IsDotted)
        return QTextFrameFormat::BorderStyle_Dotted;
    return border.IsDashed ? QTextFrameFormat::BorderStyle_Dashed : QTextFrameFormat::BorderStyle_Solid;
}

struct BorderSetters {
    void (QTextTableCellFormat::*Width)(qreal);
    void (QTextTableCellFormat::*Style)(QTextFrameFormat::BorderStyle);
    void (QTextTableCellFormat::*Brush)(const QBrush&);
};

// In the order of RtfCellDefinition::Borders.
constexpr std::array kBorderSetters{
    BorderSetters{&QTextTableCellFormat::setTopBorder, &QTextTableCellFormat::setTopBorderStyle,
                  &QTextTableCellFormat::setTopBorderBrush},
    BorderSetters{&QTextTableCellFormat::setLeftBorder, &QTextTableCellFormat::setLeftBorderStyle,
                  &QTextTableCellFormat::setLeftBorderBrush},
    BorderSetters{&QTextTableCellFormat::setBottomBorder, &QTextTableCellFormat::setBottomBorderStyle,
                  &QTextTableCellFormat::setBottomBorderBrush},
    BorderSetters{&QTextTableCellFormat::setRightBorder, &QTextTableCellFormat::setRightBorderStyle,
                  &QTextTableCellFormat::setRightBorderBrush}};

QTextTableCellFormat CellFormat(const RtfGridCell& cell, const RtfTables& tables) {
    const RtfCellDefinition& definition = *cell.Definition;
    QTextTableCellFormat format;
    format.setProperty(RtfCellRight, cell.Right);
    if (!definition.Words.isEmpty())
        format.setProperty(RtfCellWords, definition.Words);
    format.setVerticalAlignment(definition.Vertical);
    if (const QColor back = RtfColour(tables, definition.Back); definition.Back > 0 && back.isValid())
        format.setBackground(back);
    for (std::size_t side = 0; side < kBorderSetters.size(); ++side) {
        const RtfBorder& border = definition.Borders[side];
        if (!border.IsSet)
            continue;
        const QColor colour = RtfColour(tables, border.Colour);
        (format.*kBorderSetters[side].Width)(std::max(border.Width / kRtfTwipsPerPixel, 1.0));
        (format.*kBorderSetters[side].Style)(BorderStyle(border));
        (format.*kBorderSetters[side].Brush)(colour.isValid() ? colour : QColor(Qt::black));
    }
    return format;
}

} // namespace

QTextTable* InsertRtfTable(QTextCursor& cursor, const RtfTable& table, const RtfGrid& grid,
                           const RtfTables& tables) {
    QTextTable* made =
        cursor.insertTable(int(table.Rows.size()), grid.ColumnCount(), TableFormat(table, grid));
    for (const RtfGridCell& cell : grid.Cells) {
        if (cell.Rows > 1 || cell.Columns > 1)
            made->mergeCells(cell.Row, cell.Column, cell.Rows, cell.Columns);
        QTextTableCellFormat format = CellFormat(cell, tables);
        if (cell.Column == 0) {
            const RtfRowDefinition& row = *table.Rows[std::size_t(cell.Row)].Definition;
            format.setProperty(RtfRowWords, row.Words);
            format.setProperty(RtfRowLeft, row.Left);
        }
        // Merged into what is there, which holds the spans.
        QTextTableCell place = made->cellAt(cell.Row, cell.Column);
        QTextCharFormat whole = place.format();
        whole.merge(format);
        place.setFormat(whole);
    }
    return made;
}

} // namespace paneda
