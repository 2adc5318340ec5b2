#include "notes/rtf/read/parser.h"

#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/read/raw.h"

#include <algorithm>
#include <array>

namespace paneda {

namespace {

constexpr std::size_t kMaxGroups = 1000;
constexpr qsizetype kMaxHeadWords = 16000;
constexpr int kMaxLostWords = 20;

void Keep(QByteArray& words, const RtfToken& token) {
    if (words.size() < kMaxKeptWords)
        words += SourceOfWord(token);
}

// A word that makes something else than text of the group it stands in.
bool NeedsGroupStart(RtfWord meaning, const RtfToken& token) {
    return (meaning > RtfWord::Ignorable && meaning < RtfWord::Transparent) || meaning == RtfWord::Upr ||
           meaning == RtfWord::FieldInstruction ||
           (meaning == RtfWord::Kept && LabelOfRtfObject(token.Text).isEmpty());
}

// Private marks of one word processor that say again what standard words say. Its other ones hold formulas
// and embedded things.
bool RepeatsOthers(QByteArrayView word) {
    static constexpr std::array<QByteArrayView, 5> kMarks{"abilist", "abitableprops", "abicellprops",
                                                          "abiendcell", "abiendtable"};
    return std::find(kMarks.begin(), kMarks.end(), word) != kMarks.end();
}

} // namespace

RtfParser::RtfParser(QByteArrayView bytes, RtfContent& content)
    : tokens_(bytes), content_(content), flow_(content, lists_) {}

void RtfParser::Run() {
    while (!content_.Weight.IsTooMuch()) {
        const RtfToken token = tokens_.Next();
        content_.Weight.Add(RtfBurden::Source, 1, rtf_cost::kToken);
        const bool closesNote = token.Kind == RtfToken::Type::Close && groups_.size() == 1;
        if (closesNote)
            LookBehind();
        if (token.Kind == RtfToken::Type::End || closesNote)
            break;
        Take(token);
    }
    FlushBytes();
    FlushUnseen();
    if (pageBreak_)
        EndParagraph();
    flow_.Finish(Current().Paragraph, CurrentFormat(), row_.Definition());
    if (row_.IsCut() || nestedRow_.IsCut())
        content_.Lose(QStringLiteral("the cells of a very wide table"));
}

// Blanks and a NUL behind a note are usual.
void RtfParser::LookBehind() {
    const QByteArrayView rest = tokens_.Bytes().sliced(tokens_.Position());
    const bool isBlank = std::all_of(rest.begin(), rest.end(), [](char c) { return c >= 0 && c <= ' '; });
    if (!isBlank)
        content_.Lose(QStringLiteral("text after the note's end"));
}

void RtfParser::Take(const RtfToken& token) {
    switch (token.Kind) {
    case RtfToken::Type::Open:
        OpenGroup(token);
        return;
    case RtfToken::Type::Close:
        CloseGroup(token.End);
        return;
    case RtfToken::Type::Word:
        TakeWord(token);
        return;
    case RtfToken::Type::Text:
        TakeBytes(token.Text);
        break;
    case RtfToken::Type::Byte: {
        const char byte = char(token.Number);
        TakeBytes(QByteArrayView(&byte, 1));
        break;
    }
    case RtfToken::Type::Binary:
        if (skip_ == 0)
            content_.Lose(QStringLiteral("binary data in the text"));
        skip_ = std::max(skip_ - 1, 0);
        break;
    case RtfToken::Type::End:
        return;
    }
    Current().AtStart = false;
}

void RtfParser::OpenGroup(const RtfToken& token) {
    FlushBytes();
    skip_ = 0;
    if (!groups_.empty())
        Current().AtStart = false;
    if (skipNextGroup_ || groups_.size() >= kMaxGroups) {
        if (!skipNextGroup_)
            content_.Lose(QStringLiteral("groups nested very deeply"));
        skipNextGroup_ = false;
        tokens_.SkipGroup();
        return;
    }
    if (groups_.empty()) {
        groups_.emplace_back();
    } else {
        // A copy made first: growing the list moves what the copy is made of.
        Group inner = Current();
        groups_.push_back(std::move(inner));
    }
    Group& group = Current();
    group.Begin = token.Begin;
    group.AtStart = true;
    group.HasStar = false;
    group.IsField = false;
}

void RtfParser::CloseGroup(qsizetype end) {
    FlushBytes();
    skip_ = 0;
    skipNextGroup_ = false;
    const Group& group = Current();
    // A link that shows no text could not be written back as one.
    if (group.IsField && group.TextBefore == textRead_ && group.Begin < end)
        KeepUnseen(WithFallbacks(SourceFrom(group.Begin, end), group.Fallbacks));
    groups_.pop_back();
    format_ = -1;
}

void RtfParser::TakeWord(const RtfToken& token) {
    const RtfWord meaning = FindRtfWord(token.Text);
    if (skip_ > 0 && meaning == RtfWord::Character) {
        --skip_;
        return;
    }
    FlushBytes();
    skip_ = 0;
    if (meaning == RtfWord::Ignorable) {
        Current().HasStar = true;
        return;
    }
    // The outermost group is the note; no word makes another thing of it.
    if (groups_.size() > 1 && TakeGroupWord(meaning, token))
        return;
    Current().AtStart = false;
    if (RowState().Apply(meaning, token) || TakeFormatWord(meaning, token) || TakeTextWord(meaning, token) ||
        TakeEndWord(meaning) || TakeNoteWord(meaning, token))
        return;
    const bool isHeads =
        !inBody_ && groups_.size() == 1 && token.Text.size() > 1 && meaning < RtfWord::Ignorable;
    if (isHeads && content_.Head.size() < kMaxHeadWords)
        content_.Head += SourceOfWord(token);
    else
        LoseWord(token.Text);
}

// The text around the word is read all the same.
void RtfParser::LoseWord(QByteArrayView word) {
    const QString name = QString::fromLatin1(word.first(std::min<qsizetype>(word.size(), 32)));
    if (lostWords_.contains(name))
        return;
    lostWords_.insert(name);
    content_.Lose(lostWords_.size() <= kMaxLostWords
                      ? QStringLiteral("formatting of an unknown kind (\\%1)").arg(name)
                      : QStringLiteral("more formatting of unknown kinds"));
}

bool RtfParser::TakeGroupWord(RtfWord meaning, const RtfToken& token) {
    if ((Current().AtStart || !NeedsGroupStart(meaning, token)) && TakeDestination(meaning, token))
        return true;
    // A sign is no destination, whatever stands in front of it.
    const char first = token.Text.isEmpty() ? '\0' : token.Text[0];
    const bool isWord = (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z');
    if (!Current().AtStart || !Current().HasStar || meaning != RtfWord::Unknown || !isWord)
        return false;
    if (RepeatsOthers(token.Text))
        TakeInside();
    else
        TakeUnknownGroup(token);
    return true;
}

bool RtfParser::TakeFormatWord(RtfWord meaning, const RtfToken& token) {
    if (ApplyCharWord(Current().Char, meaning, token, content_.Tables)) {
        borderIsChars_ = borderIsChars_ || meaning == RtfWord::CharBorder;
        format_ = -1;
        LoseExcess();
        return true;
    }
    if (meaning == RtfWord::Tracked) {
        if (!token.HasNumber || token.Number != 0)
            content_.Lose(QStringLiteral("tracked changes"));
        return true;
    }
    if (TakeBorderWord(meaning, token))
        return true;
    if (meaning == RtfWord::ParagraphDefault)
        RowState().Close();
    const bool isParagraphs = ApplyParagraphWord(Current().Paragraph, meaning, token);
    LoseExcess();
    return isParagraphs;
}

void RtfParser::LoseExcess() {
    const RtfParagraphState& paragraph = Current().Paragraph;
    if (std::max(Current().Char.Words.size(), paragraph.Words.size()) >= kMaxKeptWords ||
        paragraph.Tabs.size() >= kMaxRtfTabs || paragraph.TabWords.size() >= kMaxKeptWords)
        content_.Lose(QStringLiteral("a great deal of formatting"));
}

bool RtfParser::TakeBorderWord(RtfWord meaning, const RtfToken& token) {
    if (meaning == RtfWord::ParagraphBorder) {
        borderIsChars_ = false;
        Keep(Current().Paragraph.Words, token);
        return true;
    }
    if (meaning != RtfWord::BorderDetail)
        return false;
    Keep(borderIsChars_ ? Current().Char.Words : Current().Paragraph.Words, token);
    LoseExcess();
    format_ = -1;
    return true;
}

bool RtfParser::TakeEndWord(RtfWord meaning) {
    const int depth = Current().Paragraph.Depth;
    switch (meaning) {
    case RtfWord::Paragraph:
        ++textRead_;
        EndParagraph();
        return true;
    case RtfWord::Section:
        content_.Lose(QStringLiteral("a section break"));
        if (!flow_.ParagraphIsEmpty())
            EndParagraph();
        return true;
    case RtfWord::Cell:
    case RtfWord::NestedCell:
        ++textRead_;
        BeginBody();
        FlushUnseen();
        flow_.EndCell(Current().Paragraph, CurrentFormat(),
                      meaning == RtfWord::Cell ? 1 : std::max(depth, 2));
        LoseMarker();
        return true;
    case RtfWord::Row:
        flow_.EndRow(1, row_.Definition());
        return true;
    case RtfWord::NestedRow:
        flow_.EndRow(std::max(depth, 2), nestedRow_.Definition());
        return true;
    default:
        return false;
    }
}

bool RtfParser::TakeNoteWord(RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::Version:
    case RtfWord::Ansi:
    case RtfWord::Ignored:
        return true;
    case RtfWord::Macintosh:
        SetCodePage(10000);
        return true;
    case RtfWord::Dos:
        SetCodePage(437);
        return true;
    case RtfWord::DosMultilingual:
        SetCodePage(850);
        return true;
    case RtfWord::AnsiCodePage:
        // 0 is written for "the machine's own".
        SetCodePage(token.Number > 0 ? token.Number : kRtfAnsiCodePage);
        return true;
    case RtfWord::DefaultFont:
        content_.Tables.DefaultFont = token.Number;
        Current().Char.Font = token.Number;
        format_ = -1;
        return true;
    default:
        return false;
    }
}

void RtfParser::SetCodePage(int codePage) {
    content_.Tables.CodePage = codePage;
    format_ = -1;
}

} // namespace paneda
