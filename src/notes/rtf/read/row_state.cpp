#include "notes/rtf/read/row_state.h"

#include "notes/rtf/read/raw.h"

#include <algorithm>

namespace paneda {

namespace {

constexpr qsizetype kMaxWords = 4000;
constexpr int kMaxEdge = 200000;

int SideOfBorder(QByteArrayView word) {
    if (word == "clbrdrt")
        return 0;
    if (word == "clbrdrl")
        return 1;
    if (word == "clbrdrb")
        return 2;
    return word == "clbrdrr" ? 3 : -1;
}

} // namespace

void RtfRowState::Keep(QByteArray& words, const RtfToken& token) {
    if (words.size() < kMaxWords)
        words += SourceOfWord(token);
    else
        cut_ = true;
}

RtfRowDefinition& RtfRowState::Row() {
    // Rows that are finished share the definition until a word changes it.
    if (row_.use_count() > 1)
        row_ = std::make_shared<RtfRowDefinition>(*row_);
    return *row_;
}

bool RtfRowState::Apply(RtfWord meaning, const RtfToken& token) {
    if (meaning == RtfWord::RowDefault) {
        row_ = std::make_shared<RtfRowDefinition>();
        cell_ = RtfCellDefinition();
        side_ = -1;
        open_ = true;
        return true;
    }
    if (!open_)
        return false;
    if (meaning == RtfWord::RowBorder || meaning == RtfWord::CellBorder || meaning == RtfWord::BorderDetail) {
        ApplyBorder(meaning, token);
        return true;
    }
    return ApplyCellWord(meaning, token) || ApplyRowWord(meaning, token);
}

void RtfRowState::ApplyBorder(RtfWord meaning, const RtfToken& token) {
    if (meaning != RtfWord::BorderDetail) {
        borderIsCells_ = meaning == RtfWord::CellBorder;
        side_ = borderIsCells_ ? SideOfBorder(token.Text) : -1;
        if (side_ >= 0)
            cell_.Borders[side_].IsSet = true;
    } else if (side_ >= 0) {
        RtfBorder& border = cell_.Borders[side_];
        if (token.Text == "brdrw")
            border.Width = std::clamp(token.Number, 0, 300);
        else if (token.Text == "brdrcf")
            border.Colour = token.Number;
        else if (token.Text == "brdrnone" || token.Text == "brdrnil" || token.Text == "brdrtbl")
            border.IsSet = false;
        else if (token.Text == "brdrdb")
            border.IsDouble = true;
        else if (token.Text == "brdrdot")
            border.IsDotted = true;
        else if (token.Text.startsWith("brdrdash"))
            border.IsDashed = true;
    }
    Keep(borderIsCells_ ? cell_.Words : Row().Words, token);
}

bool RtfRowState::ApplyCellWord(RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::CellRight:
        EndCell(token.Number);
        return true;
    case RtfWord::MergeFirst:
        cell_.MergeFirst = true;
        return true;
    case RtfWord::MergeNext:
        cell_.MergeNext = true;
        return true;
    case RtfWord::MergeRowsFirst:
        cell_.MergeRowsFirst = true;
        return true;
    case RtfWord::MergeRowsNext:
        cell_.MergeRowsNext = true;
        return true;
    case RtfWord::CellColour:
        cell_.Back = std::max(token.Number, 0);
        break;
    case RtfWord::CellTop:
        cell_.Vertical = QTextCharFormat::AlignTop;
        break;
    case RtfWord::CellMiddle:
        cell_.Vertical = QTextCharFormat::AlignMiddle;
        break;
    case RtfWord::CellBottom:
        cell_.Vertical = QTextCharFormat::AlignBottom;
        break;
    case RtfWord::KeptCell:
        break;
    default:
        return false;
    }
    Keep(cell_.Words, token);
    return true;
}

bool RtfRowState::ApplyRowWord(RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::RowLeft:
        Row().Left = std::clamp(token.Number, -kMaxEdge, kMaxEdge);
        break;
    case RtfWord::RowHeader:
        Row().IsHeader = true;
        break;
    case RtfWord::RowCentre:
        Row().Alignment = Qt::AlignHCenter;
        break;
    case RtfWord::RowRight:
        Row().Alignment = Qt::AlignRight;
        break;
    case RtfWord::KeptRow:
        break;
    default:
        return false;
    }
    Keep(Row().Words, token);
    return true;
}

void RtfRowState::EndCell(int right) {
    cell_.Right = std::clamp(right, -kMaxEdge, kMaxEdge);
    if (row_->Cells.size() < std::size_t(kMaxRtfRowCells))
        Row().Cells.push_back(cell_);
    else
        cut_ = true;
    cell_ = RtfCellDefinition();
    side_ = -1;
}

} // namespace paneda
