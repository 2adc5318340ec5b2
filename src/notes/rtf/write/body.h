#pragma once

#include "notes/rtf/write/lists.h"
#include "notes/rtf/write/runs.h"
#include "notes/rtf/write/writer.h"

#include <QByteArray>
#include <QTextFrame>

class QTextTable;

namespace paneda {

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
    // Words behind the last \pard; a paragraph with the same ones goes on without.
    QByteArray paragraph_;
    bool hasParagraph_ = false;
};

} // namespace paneda
