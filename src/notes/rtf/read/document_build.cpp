#include "notes/rtf/read/document_build.h"

#include "notes/rtf/read/table_build.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>

#include <algorithm>

namespace paneda {

namespace {

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
