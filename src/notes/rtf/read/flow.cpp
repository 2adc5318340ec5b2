#include "notes/rtf/read/flow.h"

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

// Tables within tables. Each costs a level of recursion wherever the note is walked; a cell so deep weighs
// too much anyway.
constexpr int kMaxDepth = 16;

// A plain text is not read beyond this, since by then it weighs too much, and one text can be as long as the
// note. Words are parted at this length: Qt's layout needs the square of it.
constexpr qsizetype kMaxPlainText = 2'000'000;
constexpr qsizetype kPlainWord = 1000;

int LimitedDepth(int depth) {
    return std::clamp(depth, 0, kMaxDepth);
}

} // namespace

void RtfFlow::AppendText(QStringView text, int format) {
    if (text.isEmpty())
        return;
    content_.Weight.AddText(text);
    if (content_.IsPlain) {
        AppendPlain(text);
        return;
    }
    paragraph_.Text += text;
    if (LastFormat() == format)
        paragraph_.Runs.back().Length += text.size();
    else
        paragraph_.Runs.push_back({text.size(), format});
}

void RtfFlow::EndParagraph(const RtfParagraphState& state, int markFormat) {
    if (content_.IsPlain) {
        AddPlainParagraph();
        return;
    }
    WeighText();
    WeighFormat(state);
    SetDepth(LimitedDepth(state.Depth));
    paragraph_.List = ListOf(state);
    if (paragraph_.List >= 0) {
        items_.resize(content_.Lists.size());
        const int before = items_[std::size_t(paragraph_.List)]++;
        content_.Weight.Add(RtfBurden::Items, 1, rtf_cost::kItem * before);
    }
    paragraph_.Format = FormatOf(state, paragraph_.List >= 0);
    paragraph_.MarkFormat = markFormat;
    Container().push_back({std::exchange(paragraph_, RtfParagraph()), nullptr});
}

void RtfFlow::AppendPlain(QStringView text) {
    for (const QChar c : text.first(std::min(text.size(), kMaxPlainText - plainLength_))) {
        plainWord_ = c.isSpace() ? 0 : plainWord_ + 1;
        if (plainWord_ > kPlainWord || c == QChar::LineSeparator) {
            AddPlainParagraph();
            plainWord_ = 0;
        }
        if (c != QChar::LineSeparator)
            paragraph_.Text += c;
        ++plainLength_;
    }
}

void RtfFlow::AddPlainParagraph() {
    if (!paragraph_.Text.isEmpty())
        paragraph_.Runs.push_back({paragraph_.Text.size(), 0});
    WeighText();
    content_.Items.push_back({std::exchange(paragraph_, RtfParagraph()), nullptr});
}

void RtfFlow::WeighText() {
    content_.Weight.Add(RtfBurden::Paragraphs, 1, rtf_cost::kParagraph);
    const RtfBreaking breaking = BreakingOf(paragraph_.Text, paragraph_.Runs);
    if (breaking.Letters > 0)
        content_.Weight.Add(RtfBurden::LongWords, breaking.Letters, breaking.Cost / double(breaking.Letters));
}

void RtfFlow::WeighFormat(const RtfParagraphState& state) {
    if (hasLast_ && state == lastState_)
        return;
    const double kept = double(state.Words.size() + state.TabWords.size()) * rtf_cost::kKeptByte;
    content_.Weight.Add(RtfBurden::Formatting, 1, kept + double(state.Tabs.size()) * rtf_cost::kTab);
}

void RtfFlow::AddCell(Level& level) {
    level.Row.Cells.push_back(std::exchange(level.Cell, RtfItems()));
    // A cell that is held twice as deep takes twice as long.
    content_.Weight.Add(RtfBurden::Cells, 1, rtf_cost::kCell * double(1U << (levels_.size() - 1)));
}

void RtfFlow::EndCell(const RtfParagraphState& state, int markFormat, int depth) {
    if (content_.IsPlain) {
        AppendText(u"\t", markFormat);
        return;
    }
    RtfParagraphState inCell = state;
    inCell.Depth = LimitedDepth(depth);
    EndParagraph(inCell, markFormat);
    Level& level = levels_.back();
    if (level.Row.Cells.size() < std::size_t(kMaxRtfRowCells)) {
        AddCell(level);
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
    if (content_.IsPlain) {
        AddPlainParagraph();
        return;
    }
    depth = LimitedDepth(depth);
    if (levels_.size() < std::size_t(depth))
        return;
    SetDepth(depth);
    if (definition_ != definition)
        content_.Weight.Add(RtfBurden::Source, qint64(definition->Cells.size()), rtf_cost::kCellDefinition);
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
        AddCell(level);
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
