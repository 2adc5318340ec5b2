#include "notes/rtf/read/flow.h"

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

// Tables within tables. Each costs a level of recursion wherever the note is walked.
constexpr int kMaxDepth = 16;

} // namespace

void RtfFlow::AppendText(QStringView text, int format) {
    if (text.isEmpty())
        return;
    paragraph_.Text += text;
    if (LastFormat() == format)
        paragraph_.Runs.back().Length += text.size();
    else
        paragraph_.Runs.push_back({text.size(), format});
}

void RtfFlow::EndParagraph(const RtfParagraphState& state, int markFormat) {
    SetDepth(LimitDepth(state.Depth));
    paragraph_.List = ListOf(state);
    paragraph_.Format = FormatOf(state, paragraph_.List >= 0);
    paragraph_.MarkFormat = markFormat;
    Container().push_back({std::exchange(paragraph_, RtfParagraph()), nullptr});
    ++paragraphs_;
}

void RtfFlow::EndCell(const RtfParagraphState& state, int markFormat, int depth) {
    RtfParagraphState inCell = state;
    inCell.Depth = LimitDepth(depth);
    EndParagraph(inCell, markFormat);
    Level& level = levels_.back();
    if (level.Row.Cells.size() < std::size_t(kMaxRtfRowCells)) {
        level.Row.Cells.push_back(std::exchange(level.Cell, RtfItems()));
    } else {
        content_.Lose(QStringLiteral("the cells of a very wide table"));
        RtfItems& last = level.Row.Cells.back();
        std::move(level.Cell.begin(), level.Cell.end(), std::back_inserter(last));
        level.Cell.clear();
    }
    // A list does not run on from cell to cell.
    oldList_.reset();
}

void RtfFlow::EndRow(int depth, const std::shared_ptr<const RtfRowDefinition>& definition) {
    depth = LimitDepth(depth);
    if (levels_.size() < std::size_t(depth))
        return;
    SetDepth(depth);
    definition_ = definition;
    CloseRow(levels_.back());
}

void RtfFlow::Finish(const RtfParagraphState& state, int markFormat,
                     const std::shared_ptr<const RtfRowDefinition>& definition) {
    definition_ = definition;
    if (!paragraph_.Text.isEmpty())
        EndParagraph(state, markFormat);
    SetDepth(0);
    if (content_.Items.empty()) {
        RtfParagraphState plain = state;
        plain.Depth = 0;
        EndParagraph(plain, markFormat);
    }
}

int RtfFlow::LimitDepth(int depth) {
    if (depth > kMaxDepth)
        content_.Lose(QStringLiteral("tables nested very deeply"));
    return std::clamp(depth, 0, kMaxDepth);
}

void RtfFlow::SetDepth(int depth) {
    while (levels_.size() > std::size_t(depth))
        CloseLevel();
    while (levels_.size() < std::size_t(depth))
        levels_.emplace_back();
}

void RtfFlow::CloseLevel() {
    CloseRow(levels_.back());
    std::unique_ptr<RtfTable> table = std::move(levels_.back().Table);
    levels_.pop_back();
    if (!table->Rows.empty())
        Container().push_back({RtfParagraph(), std::move(table)});
}

void RtfFlow::CloseRow(Level& level) {
    // Paragraphs behind the last \cell are a cell that was not closed.
    if (!level.Cell.empty())
        level.Row.Cells.push_back(std::exchange(level.Cell, RtfItems()));
    if (level.Row.Cells.empty())
        return;
    level.Row.Definition = definition_;
    level.Table->Rows.push_back(std::exchange(level.Row, RtfRow()));
}

int RtfFlow::ListOf(const RtfParagraphState& state) {
    if (const QTextListFormat* format =
            state.ListNumber > 0 ? lists_.Find(state.ListNumber, state.ListLevel) : nullptr)
        return TableListOf(*format, state.ListNumber, state.ListLevel);
    if (state.OldList)
        return OldListOf(state.OldList);
    oldList_.reset();
    return -1;
}

int RtfFlow::TableListOf(const QTextListFormat& format, int number, int level) {
    // After an item the levels below it start again at their first number.
    tableLists_.erase(tableLists_.upper_bound({number, level}), tableLists_.lower_bound({number + 1, 0}));
    const auto [place, isNew] = tableLists_.try_emplace({number, level}, int(content_.Lists.size()));
    if (isNew) {
        content_.Lists.push_back(format);
        content_.Lists.back().setProperty(RtfListNumber, number);
        content_.Lists.back().setProperty(RtfListLevel, level);
        content_.Lists.back().setProperty(RtfListReadStyle, int(format.style()));
    }
    return place->second;
}

int RtfFlow::OldListOf(const std::shared_ptr<const RtfOldList>& list) {
    if (list->IsContinued)
        return -1;
    if (oldList_ && (oldList_ == list || oldList_->Source == list->Source))
        return oldListNumber_;
    oldList_ = list;
    oldListNumber_ = int(content_.Lists.size());
    content_.Lists.push_back(list->Format);
    return oldListNumber_;
}

const QTextBlockFormat& RtfFlow::FormatOf(const RtfParagraphState& state, bool inList) {
    if (!hasLast_ || inList != lastInList_ || !(state == lastState_)) {
        lastFormat_ = ToBlockFormat(state, content_.Tables, inList);
        lastState_ = state;
        lastInList_ = inList;
        hasLast_ = true;
    }
    return lastFormat_;
}

} // namespace paneda
