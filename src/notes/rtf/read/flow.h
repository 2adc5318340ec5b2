#pragma once

#include "notes/rtf/read/content.h"
#include "notes/rtf/read/paragraph_state.h"

#include <map>

namespace paneda {

// Puts paragraphs, cells and rows together as their ends come in the source.
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

    // Whether the note has come to more paragraphs than are read.
    bool IsFull() const { return paragraphs_ >= kMaxParagraphs; }

    // Ends the paragraph; it stands in as many tables as its state tells.
    void EndParagraph(const RtfParagraphState& state, int markFormat);
    // Ends the paragraph and its cell in a table of that depth, 1 for one that stands in no other.
    void EndCell(const RtfParagraphState& state, int markFormat, int depth);
    void EndRow(int depth, const std::shared_ptr<const RtfRowDefinition>& definition);

    // The note's end: closes tables that are open. A note without any paragraph gets one.
    void Finish(const RtfParagraphState& state, int markFormat,
                const std::shared_ptr<const RtfRowDefinition>& definition);

private:
    // A table that is being read.
    struct Level {
        std::unique_ptr<RtfTable> Table = std::make_unique<RtfTable>();
        RtfRow Row;
        RtfItems Cell;
    };

    static constexpr int kMaxParagraphs = 1000000;

    int LimitDepth(int depth);
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
    int paragraphs_ = 0;

    // By \ls and \ilvl.
    std::map<std::pair<int, int>, int> tableLists_;
    std::shared_ptr<const RtfOldList> oldList_;
    int oldListNumber_ = -1;

    // The last paragraph's state and format: most paragraphs are like the one before.
    RtfParagraphState lastState_;
    bool lastInList_ = false;
    QTextBlockFormat lastFormat_;
    bool hasLast_ = false;
};

} // namespace paneda
