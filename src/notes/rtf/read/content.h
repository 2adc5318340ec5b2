#pragma once

#include "notes/rtf/read/row_state.h"
#include "notes/rtf/read/weight.h"

#include <QString>
#include <QTextBlockFormat>
#include <QTextListFormat>

#include <memory>
#include <vector>

class QTextDocument;

namespace paneda {

// What has been read of a note before it is put into a QTextDocument. This step is needed since a table in Qt
// is made with its full size, and RTF only shows it at the table's end.

// Characters of a paragraph's text that share a format.
struct RtfRun {
    qsizetype Length = 0;
    // Number in RtfContent::Formats.
    int Format = 0;
};

struct RtfParagraph {
    QTextBlockFormat Format;
    // Format of the paragraph's end; an empty paragraph is as high as its font.
    int MarkFormat = 0;
    // Number in RtfContent::Lists; -1 for none.
    int List = -1;
    QString Text;
    std::vector<RtfRun> Runs;
};

struct RtfTable;

// A table if Table is set, otherwise a paragraph.
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
    // See the properties of the same names (RtfHead, RtfFontTable, RtfColourTable).
    QByteArray Head;
    QByteArray FontTable;
    QByteArray ColourTable;
    RtfItems Items;
    std::vector<QTextCharFormat> Formats;
    std::vector<QTextListFormat> Lists;
    // What a save would lose, each only once.
    QStringList Losses;
    // What showing it costs.
    RtfWeight Weight;
    // Only the text is read: no look, tables as lines with tabs, the names of things in their place.
    bool IsPlain = false;

    void Lose(const QString& what) {
        if (Losses.size() < kMaxLosses && !Losses.contains(what))
            Losses.append(Losses.size() + 1 < kMaxLosses ? what : QStringLiteral("and more"));
    }

private:
    // More than anybody reads.
    static constexpr qsizetype kMaxLosses = 50;
};

// Replaces a document's whole content. Its undo history is empty afterwards, and on or off as before. Adds to
// the content's losses what the document cannot hold.
void BuildDocument(RtfContent& content, QTextDocument& document);

} // namespace paneda
