#include "notes/rtf/write/tables.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/write/numbers.h"
#include "notes/rtf/write/output.h"

#include <QTextTable>

#include <algorithm>

namespace paneda {

namespace {

// Width between the margins that a table gets which does not tell its own: six inches.
constexpr int kTextWidth = 8640;
constexpr int kLeastWidth = 15;
constexpr int kCellGap = 70;

int TwipsOf(qreal pixels) {
    return qRound(pixels * kRtfTwipsPerPixel);
}

int LengthOf(const QTextLength& length, int whole) {
    if (length.type() == QTextLength::FixedLength)
        return TwipsOf(length.rawValue());
    return length.type() == QTextLength::PercentageLength ? qRound(whole * length.rawValue() / 100) : 0;
}

// Columns that tell no width share what is left.
QList<int> ColumnWidths(const QTextTable& table) {
    const QTextTableFormat format = table.format();
    const int given = LengthOf(format.width(), kTextWidth);
    const int whole = given > 0 ? given : kTextWidth;
    const QList<QTextLength> lengths = format.columnWidthConstraints();
    QList<int> widths(table.columns(), 0);
    int sum = 0;
    int open = 0;
    for (qsizetype i = 0; i < widths.size(); ++i) {
        widths[i] = i < lengths.size() ? LengthOf(lengths[i], whole) : 0;
        sum += widths[i];
        open += widths[i] <= 0 ? 1 : 0;
    }
    const int share = open == 0 ? 0 : std::max((whole - sum) / open, kLeastWidth);
    for (int& width : widths)
        width = width > 0 ? std::max(width, kLeastWidth) : share;
    return widths;
}

bool HasEdge(const RtfRowCell& cell) {
    return cell.Cell.format().hasProperty(RtfCellRight);
}

QTextFormat RowFormat(const QList<RtfRowCell>& cells) {
    return cells.first().Cell.format();
}

// The edges that were read; false when some are missing or do not grow.
bool TakeEdges(QList<RtfRowCell>& cells) {
    int before = RowFormat(cells).intProperty(RtfRowLeft);
    for (RtfRowCell& cell : cells) {
        cell.Right = cell.Cell.format().intProperty(RtfCellRight);
        if (!HasEdge(cell) || cell.Right <= before)
            return false;
        before = cell.Right;
    }
    return true;
}

void CountEdges(QList<RtfRowCell>& cells, const QList<int>& widths) {
    QList<int> edges{RowFormat(cells).intProperty(RtfRowLeft)};
    for (const int width : widths)
        edges.append(edges.last() + width);
    for (RtfRowCell& cell : cells)
        cell.Right = edges[cell.Cell.column() + cell.Cell.columnSpan()];
}

QByteArray BorderWord(QTextFrameFormat::BorderStyle style) {
    switch (style) {
    case QTextFrameFormat::BorderStyle_Dotted:
        return "brdrdot";
    case QTextFrameFormat::BorderStyle_Dashed:
        return "brdrdash";
    case QTextFrameFormat::BorderStyle_Double:
        return "brdrdb";
    case QTextFrameFormat::BorderStyle_DotDash:
        return "brdrdashd";
    case QTextFrameFormat::BorderStyle_DotDotDash:
        return "brdrdashdd";
    default:
        return "brdrs";
    }
}

struct Border {
    qreal Width = 0; // pixels
    QTextFrameFormat::BorderStyle Style = QTextFrameFormat::BorderStyle_None;
    QBrush Brush;
};

void WriteBorder(RtfOutput& out, QByteArrayView side, Border own, const QTextTableFormat& table,
                 RtfNumbers& numbers) {
    if (own.Style == QTextFrameFormat::BorderStyle_None || own.Width <= 0)
        own = {table.border(), table.borderStyle(), table.borderBrush()};
    if (own.Style == QTextFrameFormat::BorderStyle_None || own.Width <= 0)
        return;
    out.Word(side);
    out.Word(BorderWord(own.Style));
    out.Word("brdrw", std::max(TwipsOf(own.Width), 1));
    const QColor colour = own.Brush.color();
    if (own.Brush.style() != Qt::NoBrush && colour != Qt::black)
        out.Word("brdrcf", numbers.Colour(colour));
}

void WriteBorders(RtfOutput& out, const QTextTableCellFormat& cell, const QTextTableFormat& table,
                  RtfNumbers& numbers) {
    WriteBorder(out, "clbrdrt", {cell.topBorder(), cell.topBorderStyle(), cell.topBorderBrush()}, table,
                numbers);
    WriteBorder(out, "clbrdrl", {cell.leftBorder(), cell.leftBorderStyle(), cell.leftBorderBrush()}, table,
                numbers);
    WriteBorder(out, "clbrdrb", {cell.bottomBorder(), cell.bottomBorderStyle(), cell.bottomBorderBrush()},
                table, numbers);
    WriteBorder(out, "clbrdrr", {cell.rightBorder(), cell.rightBorderStyle(), cell.rightBorderBrush()}, table,
                numbers);
}

void WriteCellWords(RtfOutput& out, const QTextTableCellFormat& cell, const QTextTableFormat& table,
                    RtfNumbers& numbers) {
    if (cell.hasProperty(RtfCellWords))
        return out.Raw(cell.property(RtfCellWords).toByteArray());
    if (cell.verticalAlignment() == QTextCharFormat::AlignMiddle)
        out.Word("clvertalc");
    else if (cell.verticalAlignment() == QTextCharFormat::AlignBottom)
        out.Word("clvertalb");
    WriteBorders(out, cell, table, numbers);
    if (cell.background().style() != Qt::NoBrush)
        out.Word("clcbpat", numbers.Colour(cell.background().color()));
}

void WriteRowWords(RtfOutput& out, const QTextTable& table, int row, const QTextFormat& rowFormat) {
    const QTextTableFormat format = table.format();
    const QByteArray kept = rowFormat.property(RtfRowWords).toByteArray();
    if (!rowFormat.hasProperty(RtfRowWords))
        out.Word("trgaph", format.cellPadding() > 0 ? TwipsOf(format.cellPadding()) : kCellGap);
    if (!kept.contains("\\trleft"))
        out.Word("trleft", rowFormat.intProperty(RtfRowLeft));
    if (row < format.headerRowCount() && !kept.contains("\\trhdr"))
        out.Word("trhdr");
    if (format.alignment().testFlag(Qt::AlignHCenter) && !kept.contains("\\trqc"))
        out.Word("trqc");
    else if (format.alignment().testFlag(Qt::AlignRight) && !kept.contains("\\trqr"))
        out.Word("trqr");
    out.Raw(kept);
}

} // namespace

QList<RtfRowCell> CellsOfRow(const QTextTable& table, int row) {
    QList<RtfRowCell> cells;
    for (int column = 0; column < table.columns();) {
        const QTextTableCell cell = table.cellAt(row, column);
        cells.append({cell, cell.row() < row, 0});
        column = std::max(cell.column() + cell.columnSpan(), column + 1);
    }
    if (!TakeEdges(cells))
        CountEdges(cells, ColumnWidths(table));
    return cells;
}

QByteArray RowDefinition(const QTextTable& table, int row, const QList<RtfRowCell>& cells,
                         RtfNumbers& numbers) {
    RtfOutput out;
    out.Word("trowd");
    WriteRowWords(out, table, row, RowFormat(cells));
    for (const RtfRowCell& cell : cells) {
        if (cell.Cell.rowSpan() > 1)
            out.Word(cell.IsContinued ? "clvmrg" : "clvmgf");
        WriteCellWords(out, cell.Cell.format().toTableCellFormat(), table.format(), numbers);
        out.Word("cellx", cell.Right);
    }
    return out.Bytes();
}

} // namespace paneda
