#include "notes/rtf/read/content.h"
#include "notes/rtf/read/table_grid.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextList>
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

// Puts an empty table of the grid's shape in at the cursor, with the look and the properties of its cells.
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

class Builder {
public:
    Builder(RtfContent& content, QTextDocument& document)
        : content_(content), cursor_(&document), lists_(content.Lists.size()) {}

    void Build() {
        cursor_.beginEditBlock();
        AddItems({&content_.Items});
        cursor_.endEditBlock();
    }

private:
    // Fills a frame, the cursor being in its first and still empty block.
    void AddItems(const std::vector<RtfItems*>& parts) {
        bool isFresh = true;
        for (RtfItems* items : parts) {
            for (RtfItem& item : *items)
                isFresh = AddItem(item, isFresh);
        }
        if (isFresh)
            MarkFiller();
    }

    // The mark in front of a cell's first block is the cell, which keeps what makes it one.
    void SetFreshMark(QTextCharFormat mark) {
        if (!cellBegins_) {
            cursor_.setBlockCharFormat(mark);
            return;
        }
        mark.clearBackground();
        mark.clearProperty(QTextFormat::TextVerticalAlignment);
        cursor_.mergeBlockCharFormat(mark);
    }

    // Whether the block that the cursor is in is still to be given a paragraph afterwards.
    bool AddItem(RtfItem& item, bool isFresh) {
        if (item.Table)
            return AddTable(*item.Table, isFresh);
        AddParagraph(item.Paragraph, isFresh);
        return false;
    }

    void AddParagraph(const RtfParagraph& paragraph, bool intoFreshBlock) {
        QTextBlockFormat format = paragraph.Format;
        QTextList* list = paragraph.List < 0 ? nullptr : lists_[std::size_t(paragraph.List)];
        if (list)
            format.setObjectIndex(list->objectIndex());
        const QTextCharFormat& mark = content_.Formats[std::size_t(paragraph.MarkFormat)];
        if (intoFreshBlock) {
            cursor_.setBlockFormat(format);
            SetFreshMark(mark);
        } else {
            cursor_.insertBlock(format, mark);
        }
        cellBegins_ = false;
        if (paragraph.List >= 0 && !list)
            lists_[std::size_t(paragraph.List)] =
                cursor_.createList(content_.Lists[std::size_t(paragraph.List)]);
        qsizetype at = 0;
        for (const RtfRun& run : paragraph.Runs) {
            cursor_.insertText(run.Length == paragraph.Text.size() ? paragraph.Text
                                                                   : paragraph.Text.sliced(at, run.Length),
                               content_.Formats[std::size_t(run.Format)]);
            at += run.Length;
        }
    }

    bool AddTable(RtfTable& table, bool isFresh) {
        std::optional<RtfGrid> grid = MakeRtfGrid(table);
        if (!grid) {
            content_.Lose(QStringLiteral("the grid of a very large table"));
            return AddCellsAsText(table, isFresh);
        }
        if (isFresh)
            MarkFiller();
        QTextTable* made = InsertRtfTable(cursor_, table, *grid, content_.Tables);
        for (const RtfGridCell& cell : grid->Cells) {
            cursor_ = made->cellAt(cell.Row, cell.Column).firstCursorPosition();
            cellBegins_ = true;
            AddItems(cell.Contents);
        }
        cellBegins_ = false;
        cursor_.setPosition(made->lastPosition() + 1);
        return true;
    }

    bool AddCellsAsText(RtfTable& table, bool isFresh) {
        for (RtfRow& row : table.Rows) {
            for (RtfItems& cell : row.Cells) {
                for (RtfItem& item : cell)
                    isFresh = AddItem(item, isFresh);
            }
        }
        return isFresh;
    }

    void MarkFiller() {
        QTextBlockFormat format;
        format.setProperty(RtfFiller, true);
        cursor_.setBlockFormat(format);
    }

    RtfContent& content_;
    QTextCursor cursor_;
    // The cursor is in the first block of a cell that is still empty.
    bool cellBegins_ = false;
    // By number; nullptr until its first item.
    std::vector<QTextList*> lists_;
};

QVariantMap Families(const RtfFonts& fonts) {
    QVariantMap families;
    for (const auto& [number, font] : fonts)
        families.insert(QString::number(number), font.Family);
    return families;
}

void KeepNoteProperties(const RtfContent& content, QTextDocument& document) {
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    format.setProperty(RtfHead, content.Head);
    format.setProperty(RtfFontTable, content.FontTable);
    format.setProperty(RtfColourTable, content.ColourTable);
    if (content.Tables.System && *content.Tables.System)
        format.setProperty(RtfFontFamilies, Families(content.Tables.Fonts));
    format.setProperty(RtfDefaultFont, content.Tables.DefaultFont);
    format.setProperty(RtfCodePage, content.Tables.CodePage);
    document.rootFrame()->setFrameFormat(format);
}

} // namespace

void BuildDocument(RtfContent& content, QTextDocument& document) {
    const bool hasUndo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.clear();
    Builder(content, document).Build();
    KeepNoteProperties(content, document);
    document.setUndoRedoEnabled(hasUndo);
    document.setModified(false);
}

} // namespace paneda
