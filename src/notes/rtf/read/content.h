#pragma once

#include "notes/rtf/read/row_state.h"

#include <QString>
#include <QTextBlockFormat>
#include <QTextListFormat>

#include <memory>
#include <vector>

namespace paneda {

// A note between its RTF and its QTextDocument, which wants to know a table's size before its first cell.

// Characters of a paragraph's text that share a format.
struct RtfRun {
    qsizetype Length = 0;
    // Number in RtfContent::Formats.
    int Format = 0;
};

struct RtfParagraph {
    QTextBlockFormat Format;
    // Format of the paragraph's mark, which is that of an empty paragraph.
    int MarkFormat = 0;
    // Number in RtfContent::Lists; -1 for none.
    int List = -1;
    QString Text;
    std::vector<RtfRun> Runs;
};

struct RtfTable;

// A paragraph, or a table if there is one.
struct RtfItem {
    RtfParagraph Paragraph;
    std::unique_ptr<RtfTable> Table;
};

using RtfItems = std::vector<RtfItem>;

struct RtfRow {
    std::shared_ptr<const RtfRowDefinition> Definition;
    std::vector<RtfItems> Cells;
};

struct RtfTable {
    std::vector<RtfRow> Rows;
};

struct RtfContent {
    RtfTables Tables;
    // As the properties of the root frame tell them.
    QByteArray Head;
    QByteArray FontTable;
    QByteArray ColourTable;
    RtfItems Items;
    std::vector<QTextCharFormat> Formats;
    std::vector<QTextListFormat> Lists;
    // What a save would lose; each is told once.
    QStringList Losses;

    void Lose(const QString& what) {
        if (!Losses.contains(what))
            Losses.append(what);
    }
};

} // namespace paneda
