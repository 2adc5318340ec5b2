#pragma once

#include "notes/rtf/read/content.h"
#include "notes/rtf/read/paragraph_state.h"

#include <map>

namespace paneda {

// Collects text into paragraphs, cells, rows and tables. RTF marks only where each of them ends.
class RtfFlow {
public:
    RtfFlow(RtfContent& content, const RtfListTables& lists) : content_(content), lists_(lists) {}

    // `format` is a number in the content's formats.
    void AppendText(QStringView text, int format);

    bool ParagraphIsEmpty() const { return paragraph_.Text.isEmpty(); }
    // Format of the last character of the paragraph that is open; -1 when there is none.
    int LastFormat() const { return paragraph_.Runs.empty() ? -1 : paragraph_.Runs.back().Format; }

    // Whether the paragraph that was ended last is a list item.
    bool LastIsItem() const { return lastInList_; }

    // Ends the paragraph. state.Depth says how many tables it is in.
    void EndParagraph(const RtfParagraphState& state, int markFormat);
    // Ends the paragraph and its cell. `depth` is 1 for a table that is in no other table, 2 for a table in
    // it, ...
    void EndCell(const RtfParagraphState& state, int markFormat, int depth);
    void EndRow(int depth, const std::shared_ptr<const RtfRowDefinition>& definition);

    // To be called at the end of the note: closes the open tables, and gives an empty note its one paragraph.
    void Finish(const RtfParagraphState& state, int markFormat,
                const std::shared_ptr<const RtfRowDefinition>& definition);

private:
    // A table that is being read.
    struct Level {
        std::unique_ptr<RtfTable> Table = std::make_unique<RtfTable>();
        RtfRow Row;
        RtfItems Cell;
    };

    void AddPlainParagraph();
    void AddCell(Level& level);
    void AppendPlain(QStringView text);
    void WeighText();
    void WeighFormat(const RtfParagraphState& state);
    void SetDepth(int depth);
    void CloseLevel();
    void CloseRow(Level& level);
    RtfItems& Container() { return levels_.empty() ? content_.Items : levels_.back().Cell; }
    int ListOf(const RtfParagraphState& state);
    int TableListOf(const QTextListFormat& format, int number, int level);
    int OldListOf(const std::shared_ptr<const RtfOldList>& list);
    const QTextBlockFormat& FormatOf(const RtfParagraphState& state, bool inList);

    RtfContent& content_;
    const RtfListTables& lists_;
    RtfParagraph paragraph_;
    std::vector<Level> levels_;
    std::shared_ptr<const RtfRowDefinition> definition_ = std::make_shared<RtfRowDefinition>();

    // By \ls and \ilvl.
    std::map<std::pair<int, int>, int> tableLists_;
    std::shared_ptr<const RtfOldList> oldList_;
    int oldListNumber_ = -1;

    // State and format of the last paragraph, to be used again: most paragraphs look like the one before.
    RtfParagraphState lastState_;
    bool lastInList_ = false;
    QTextBlockFormat lastFormat_;
    // Of the plain text: its length, and that of the word at its end.
    qsizetype plainLength_ = 0;
    qsizetype plainWord_ = 0;
    // Items of each list.
    std::vector<int> items_;
    bool hasLast_ = false;
};

} // namespace paneda
