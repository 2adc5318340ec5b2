#include "notes/rtf/read/paragraph_state.h"

#include "notes/rtf/read/raw.h"

#include <algorithm>

namespace paneda {

namespace {

// The widest page RTF knows is 22 inches; a measure beyond it would push the text out of reach.
constexpr int kMaxMeasure = 31680;

int Measure(const RtfToken& token) {
    return std::clamp(token.Number, -kMaxMeasure, kMaxMeasure);
}

bool IsOn(const RtfToken& token) {
    return !token.HasNumber || token.Number != 0;
}

qreal Pixels(int twips) {
    return twips / kRtfTwipsPerPixel;
}

void AddTab(RtfParagraphState& state, const RtfToken& token) {
    if (state.Tabs.size() >= kMaxRtfTabs)
        return;
    state.Tabs.append(QTextOption::Tab(Pixels(Measure(token)), state.TabType));
    state.TabType = QTextOption::LeftTab;
}

bool ApplyTabWord(RtfParagraphState& state, RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::TabStop:
        AddTab(state, token);
        break;
    case RtfWord::TabKind:
        state.TabType = token.Text == "tql"   ? QTextOption::LeftTab
                        : token.Text == "tqr" ? QTextOption::RightTab
                        : token.Text == "tqc" ? QTextOption::CenterTab
                                              : QTextOption::DelimiterTab;
        break;
    case RtfWord::TabBar:
    case RtfWord::TabLeader:
        state.TabWordsCount = true;
        break;
    default:
        return false;
    }
    if (state.TabWords.size() < kMaxKeptWords)
        state.TabWords += SourceOfWord(token);
    return true;
}

bool ApplyMeasureWord(RtfParagraphState& state, RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::LeftIndent:
        state.Left = Measure(token);
        return true;
    case RtfWord::RightIndent:
        state.Right = Measure(token);
        return true;
    case RtfWord::FirstIndent:
        state.First = Measure(token);
        return true;
    case RtfWord::SpaceBefore:
        state.Before = std::max(Measure(token), 0);
        return true;
    case RtfWord::SpaceAfter:
        state.After = std::max(Measure(token), 0);
        return true;
    case RtfWord::LineSpacing:
        state.Line = Measure(token);
        return true;
    case RtfWord::LineMultiple:
        state.LineIsMultiple = IsOn(token);
        return true;
    case RtfWord::ParagraphColour:
        state.Back = std::max(token.Number, 0);
        return true;
    case RtfWord::InTable:
        state.Depth = !IsOn(token) ? 0 : std::max(state.Depth, 1);
        return true;
    case RtfWord::NestLevel:
        state.Depth = std::max(token.Number, 0);
        return true;
    case RtfWord::ListNumber:
        state.ListNumber = std::max(token.Number, 0);
        return true;
    case RtfWord::ListLevel:
        state.ListLevel = std::clamp(token.Number, 0, kMaxRtfListLevel);
        return true;
    default:
        return false;
    }
}

void SetLineHeight(QTextBlockFormat& format, const RtfParagraphState& state) {
    if (state.Line == 0)
        return;
    if (state.LineIsMultiple)
        format.setLineHeight(std::abs(state.Line) / 2.4, QTextBlockFormat::ProportionalHeight);
    else if (state.Line < 0)
        format.setLineHeight(Pixels(-state.Line), QTextBlockFormat::FixedHeight);
    else
        format.setLineHeight(Pixels(state.Line), QTextBlockFormat::MinimumHeight);
}

void SetIndents(QTextBlockFormat& format, const RtfParagraphState& state, bool inList) {
    if (state.Left != 0)
        format.setLeftMargin(Pixels(state.Left));
    if (state.Right != 0)
        format.setRightMargin(Pixels(state.Right));
    if (state.First != 0 && inList)
        format.setProperty(RtfListFirstIndent, state.First);
    else if (state.First != 0)
        format.setTextIndent(Pixels(state.First));
    if (state.Before != 0)
        format.setTopMargin(Pixels(state.Before));
    if (state.After != 0)
        format.setBottomMargin(Pixels(state.After));
}

} // namespace

bool ApplyParagraphWord(RtfParagraphState& state, RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::ParagraphDefault:
        state = RtfParagraphState();
        return true;
    case RtfWord::AlignLeft:
        state.Alignment = Qt::AlignLeft;
        return true;
    case RtfWord::AlignRight:
        state.Alignment = Qt::AlignRight;
        return true;
    case RtfWord::AlignCentre:
        state.Alignment = Qt::AlignHCenter;
        return true;
    case RtfWord::AlignJustify:
        state.Alignment = Qt::AlignJustify;
        return true;
    case RtfWord::PageBreakBefore:
        state.PageBreak = IsOn(token);
        return true;
    case RtfWord::RightToLeft:
    case RtfWord::LeftToRight:
        state.RightToLeft = meaning == RtfWord::RightToLeft;
        return true;
    case RtfWord::Keep:
        state.Keep = IsOn(token);
        return true;
    case RtfWord::KeptParagraph:
        KeepWord(state.Words, token, false);
        return true;
    default:
        return ApplyTabWord(state, meaning, token) || ApplyMeasureWord(state, meaning, token);
    }
}

QTextBlockFormat ToBlockFormat(const RtfParagraphState& state, const RtfTables& tables, bool inList) {
    QTextBlockFormat format;
    // AlignAbsolute: \ql is the left side in a paragraph from right to left too.
    format.setAlignment(state.Alignment | (state.RightToLeft ? Qt::AlignAbsolute : Qt::Alignment()));
    if (state.RightToLeft)
        format.setLayoutDirection(Qt::RightToLeft);
    SetIndents(format, state, inList);
    SetLineHeight(format, state);
    if (!state.Tabs.isEmpty())
        format.setTabPositions(state.Tabs);
    if (state.TabWordsCount)
        format.setProperty(RtfTabWords, QString::fromLatin1(state.TabWords));
    if (state.PageBreak)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    if (state.Keep)
        format.setNonBreakableLines(true);
    if (const QColor back = RtfColour(tables, state.Back); state.Back > 0 && back.isValid())
        format.setBackground(back);
    if (!state.Words.isEmpty())
        format.setProperty(RtfParagraphWords, QString::fromLatin1(state.Words));
    return format;
}

} // namespace paneda
