#include "notes/rtf/write/body.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/write/numbers.h"
#include "notes/rtf/write/output.h"
#include "notes/rtf/write/paragraph_words.h"
#include "notes/rtf/write/tables.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

namespace paneda {

namespace {

QByteArray TableWords(int level) {
    if (level == 0)
        return {};
    return level == 1 ? QByteArray("\\intbl") : "\\intbl\\itap" + QByteArray::number(level);
}

const QTextTable* TableAt(const QTextFrame::iterator& at) {
    return at.atEnd() ? nullptr : qobject_cast<const QTextTable*>(at.currentFrame());
}

} // namespace

void RtfBodyWriter::Write() {
    Flow(document_.rootFrame()->begin(), 0, false);
}

void RtfBodyWriter::Flow(QTextFrame::iterator at, int level, bool isCell) {
    // At the start and behind a table, a table that follows needs a block in front of it.
    bool isPlaceOfFiller = true;
    bool cellIsOpen = isCell;
    while (!at.atEnd()) {
        const QTextFrame::iterator here = at++;
        const QTextTable* table = TableAt(here);
        if (table != nullptr) {
            Table(*table, level + 1);
        } else if (here.currentFrame() != nullptr) {
            Flow(here.currentFrame()->begin(), level, false);
        } else {
            const QTextBlock block = here.currentBlock();
            const bool isFiller = isPlaceOfFiller && TableAt(at) != nullptr && block.length() <= 1 &&
                                  block.blockFormat().boolProperty(RtfFiller);
            if (!isFiller) {
                Begin(block, level);
                if (isCell && at.atEnd()) {
                    EndCell(level);
                    cellIsOpen = false;
                } else {
                    End(block);
                }
            }
        }
        isPlaceOfFiller = table != nullptr;
    }
    if (cellIsOpen)
        EndCell(level);
}

void RtfBodyWriter::Begin(const QTextBlock& block, int level) {
    const RtfListWriter::Item item = lists_.Next(block);
    const QByteArray table = TableWords(level);
    const QByteArray words = item.Group + ParagraphWords(block, numbers_);
    const QByteArray all = table + words;
    if (all != paragraph_ || !hasParagraph_) {
        out_.Word("pard");
        out_.Raw(table);
        out_.Raw(item.Text);
        out_.Raw(words);
        paragraph_ = all;
        hasParagraph_ = true;
    } else {
        out_.Raw(item.Text);
    }
    runs_.Write(block);
}

void RtfBodyWriter::End(const QTextBlock& block) {
    const bool isLast = !block.next().isValid();
    if (isLast && extent_ == RtfExtent::Passage)
        return;
    out_.Word("par");
    out_.LineEnd();
    if (!isLast && block.blockFormat().pageBreakPolicy().testFlag(QTextFormat::PageBreak_AlwaysAfter))
        out_.Word("page");
}

void RtfBodyWriter::EndCell(int level) {
    out_.Word(level == 1 ? "cell" : "nestcell");
}

void RtfBodyWriter::Table(const QTextTable& table, int level) {
    for (int row = 0; row < table.rows(); ++row)
        Row(table, row, level);
}

void RtfBodyWriter::Row(const QTextTable& table, int row, int level) {
    const QList<RtfRowCell> cells = CellsOfRow(table, row);
    const QByteArray definition = RowDefinition(table, row, cells, numbers_);
    // Readers that know no nested tables take the definition in front, all others the one in its group.
    if (level == 1)
        out_.Raw(definition);
    for (const RtfRowCell& cell : cells) {
        if (cell.IsContinued) {
            out_.Word("pard");
            paragraph_ = TableWords(level);
            out_.Raw(paragraph_);
            EndCell(level);
        } else {
            Flow(cell.Cell.begin(), level, true);
        }
    }
    EndRow(definition, level);
}

void RtfBodyWriter::EndRow(const QByteArray& definition, int level) {
    if (level == 1) {
        out_.Word("row");
    } else {
        out_.OpenStarred();
        out_.Word("nesttableprops");
        out_.Raw(definition);
        out_.Word("nestrow");
        out_.Close();
        out_.Raw("{\\nonesttables\\par}");
    }
    out_.LineEnd();
    // An office program gives a note up whose next row begins without \pard.
    hasParagraph_ = false;
}

} // namespace paneda
