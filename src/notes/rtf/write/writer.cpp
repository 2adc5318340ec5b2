#include "notes/rtf/write/writer.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/write/lists.h"
#include "notes/rtf/write/numbers.h"
#include "notes/rtf/write/output.h"
#include "notes/rtf/write/runs.h"
#include "notes/rtf/write/tables.h"
#include "notes/rtf/write/words.h"

#include <QByteArray>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

namespace paneda {

namespace {

// Writes the paragraphs and tables of a document.
class RtfBodyWriter {
public:
    RtfBodyWriter(RtfOutput& out, RtfNumbers& numbers, const QTextDocument& document, RtfExtent extent)
        : out_(out)
        , numbers_(numbers)
        , document_(document)
        , extent_(extent)
        , lists_(numbers)
        , runs_(out, numbers, document) {}

    void Write();

private:
    // A level counts the tables around a paragraph.
    void Flow(QTextFrame::iterator at, int level, bool isCell);
    void Table(const QTextTable& table, int level);
    void Row(const QTextTable& table, int row, int level);
    void EndRow(const QByteArray& definition, int level);
    void Begin(const QTextBlock& block, int level);
    void End(const QTextBlock& block);
    void EndCell(int level);

    RtfOutput& out_;
    RtfNumbers& numbers_;
    const QTextDocument& document_;
    RtfExtent extent_;
    RtfListWriter lists_;
    RtfRunWriter runs_;
    // Words behind the last \pard; they are not repeated while they stay the same.
    QByteArray paragraph_;
    bool hasParagraph_ = false;
};

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

namespace {

void WriteCharacterSet(RtfOutput& out, int codePage) {
    if (codePage == 10000) {
        out.Word("mac");
    } else if (codePage == 437) {
        out.Word("pc");
    } else if (codePage == 850) {
        out.Word("pca");
    } else {
        out.Word("ansi");
        out.Word("ansicpg", codePage);
    }
}

void WriteHead(RtfOutput& out, const RtfNumbers& numbers, const QTextFormat& root, int codePage) {
    out.Word("rtf1");
    WriteCharacterSet(out, codePage);
    out.Word("deff", numbers.DefaultFont());
    numbers.WriteTables(out);
    out.Raw("{\\*\\generator Paneda Launcher;}");
    out.Raw(root.hasProperty(RtfHead) ? root.property(RtfHead).toByteArray() : QByteArray("\\viewkind4"));
    out.Word("uc1");
    out.LineEnd();
}

} // namespace

QByteArray WriteRtf(const QTextDocument& document, RtfExtent extent) {
    const QTextFormat root = document.rootFrame()->frameFormat();
    const int codePage = root.hasProperty(RtfCodePage) ? root.intProperty(RtfCodePage) : kRtfAnsiCodePage;
    RtfNumbers numbers(document);
    RtfOutput body(codePage);
    body.Reserve(qsizetype(document.characterCount()) * 2);
    RtfBodyWriter(body, numbers, document, extent).Write();
    // The tables stand in front, but what they hold is only known now.
    RtfOutput out(codePage);
    out.Reserve(body.Bytes().size() + 4096);
    out.Open();
    WriteHead(out, numbers, root, codePage);
    out.Raw(body.Bytes());
    out.Close();
    out.LineEnd();
    return out.Bytes();
}

} // namespace paneda
