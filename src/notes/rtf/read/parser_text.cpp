#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/read/parser.h"
#include "notes/rtf/read/raw.h"

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

bool IsAscii(QByteArrayView bytes) {
    return std::none_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) != 0; });
}

// Control characters, and those that QTextDocument gives a meaning of its own.
bool IsSpecial(QChar c) {
    const char16_t unit = c.unicode();
    return (unit < 0x20 && unit != u'\t') || unit == 0x2029 || unit == 0xFFFC ||
           (unit >= 0xFDD0 && unit <= 0xFDEF);
}

void ReplaceSpecials(QString& text) {
    text.replace(QChar(0x2029), QChar(0x2028));
    text.replace(QChar(0xFFFC), QChar(0xFFFD));
    text.removeIf(IsSpecial);
}

} // namespace

void RtfParser::TakeBytes(QByteArrayView bytes) {
    const qsizetype skipped = std::min<qsizetype>(skip_, bytes.size());
    skip_ -= int(skipped);
    bytes_ += bytes.sliced(skipped);
}

void RtfParser::FlushBytes() {
    if (bytes_.isEmpty())
        return;
    // Makes sure of the code page too.
    CurrentFormat();
    if (codePage_ != kRtfSymbolCodePage && IsAscii(bytes_)) {
        AppendText(QString::fromLatin1(bytes_));
    } else if (const std::optional<QString> text = DecodeBytes(bytes_, {codePage_, content_.Tables.System})) {
        AppendText(*text);
    } else {
        content_.Lose(QStringLiteral("text in code page %1").arg(codePage_));
        AppendText(QString(bytes_.size(), QChar::ReplacementCharacter));
    }
    // Keeps the room for the next text.
    bytes_.resize(0);
}

bool RtfParser::TakeTextWord(RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::Unicode:
        TakeUnicode(token.Number);
        return true;
    case RtfWord::UnicodeSkip:
        Current().Fallbacks = std::clamp(token.Number, 0, 255);
        return true;
    case RtfWord::Line:
        AppendText(QString(QChar::LineSeparator));
        return true;
    case RtfWord::Tab:
        AppendText(QStringLiteral("\t"));
        return true;
    case RtfWord::Character:
        AppendText(QString(QChar(CharacterOfRtfWord(token.Text))));
        return true;
    case RtfWord::KeptCharacter:
        KeepSeen("{\\" + token.Text.toByteArray() + '}', QStringLiteral("#"));
        return true;
    case RtfWord::PageBreak:
        if (flow_.ParagraphIsEmpty())
            pageBreak_ = true;
        else
            KeepSeen("{\\page}", QStringLiteral("[page]"));
        return true;
    default:
        return false;
    }
}

void RtfParser::TakeUnicode(int number) {
    // Numbers above 32767 should be written as negative ones; some programs write them, or whole code points,
    // as they are.
    if (number > 0xFFFF && number <= 0x10FFFF) {
        const char32_t point = char32_t(number);
        AppendText(QString::fromUcs4(&point, 1));
    } else {
        AppendText(QString(QChar(char16_t(number))));
    }
    skip_ = Current().Fallbacks;
}

void RtfParser::AppendText(QString text) {
    if (std::any_of(text.cbegin(), text.cend(), IsSpecial)) {
        content_.Lose(QStringLiteral("control characters"));
        ReplaceSpecials(text);
    }
    if (text.isEmpty())
        return;
    textRead_ += text.size();
    BeginBody();
    if (Current().Char.Hidden)
        AppendHidden(text);
    else
        AppendVisible(text, CurrentFormat());
}

void RtfParser::AppendVisible(QStringView text, int format) {
    FlushUnseen();
    flow_.AppendText(text, format);
    pictureFormat_ = -1;
}

// Hidden text of one look becomes one object that has this look.
void RtfParser::AppendHidden(const QString& text) {
    if (const int format = CurrentFormat(); format != hiddenFormat_) {
        FlushUnseen();
        hiddenFormat_ = format;
    }
    hidden_ += text;
}

void RtfParser::BeginBody() {
    inBody_ = true;
    RowState().Close();
}

void RtfParser::EndParagraph() {
    BeginBody();
    FlushUnseen();
    if (Current().Char.Hidden)
        content_.Lose(QStringLiteral("hidden ends of paragraphs"));
    RtfParagraphState state = Current().Paragraph;
    state.PageBreak = state.PageBreak || std::exchange(pageBreak_, false);
    flow_.EndParagraph(state, CurrentFormat());
    LoseMarker();
}

// The editor makes the markers of lists by itself. One that no list accounts for is text.
void RtfParser::LoseMarker() {
    if (std::exchange(hasMarker_, false) && !flow_.LastIsItem())
        content_.Lose(QStringLiteral("numbers or bullets that belong to no list"));
}

void RtfParser::FlushUnseen() {
    CloseHidden();
    const int look = std::exchange(hiddenFormat_, -1);
    if (unseen_.isEmpty())
        return;
    if (content_.IsPlain) {
        unseen_.clear();
        return;
    }
    WeighThing();
    QTextCharFormat format = content_.Formats[std::size_t(look >= 0 ? look : CurrentFormat())];
    format.setObjectType(kRtfObject);
    format.setProperty(RtfRaw, std::exchange(unseen_, QByteArray()));
    content_.Formats.push_back(format);
    flow_.AppendText(QStringView(u"\uFFFC"), int(content_.Formats.size()) - 1);
    pictureFormat_ = -1;
}

void RtfParser::CloseHidden() {
    if (!hidden_.isEmpty())
        unseen_ += "{\\uc1\\v " + RtfOfText(std::exchange(hidden_, QString())) + '}';
}

bool RtfParser::PutsLabel(const QString& label) {
    if (content_.IsPlain)
        AppendVisible(label, CurrentFormat());
    return content_.IsPlain;
}

int RtfParser::CurrentFormat() {
    if (format_ >= 0)
        return format_;
    const RtfChar& state = Current().Char;
    const auto font = content_.Tables.Fonts.find(state.Font);
    codePage_ = font != content_.Tables.Fonts.end() ? font->second.CodePage : content_.Tables.CodePage;
    const auto known = formatOf_.constFind(state);
    format_ = known != formatOf_.constEnd() ? *known : MakeFormat();
    return format_;
}

int RtfParser::MakeFormat() {
    if (content_.IsPlain) {
        content_.Formats.resize(1);
        return 0;
    }
    const RtfChar& state = Current().Char;
    const double kept = double(state.Words.size()) * rtf_cost::kKeptByte;
    content_.Weight.Add(RtfBurden::Formatting, 1, rtf_cost::kFormat + kept);
    const auto font = quint64(quint32(state.Font)) << 32 | quint64(quint16(state.HalfPoints)) << 3 |
                      quint64(state.Bold) << 2 | quint64(state.Italic) << 1 | quint64(state.SmallCaps);
    if (!fonts_.contains(font)) {
        fonts_.insert(font);
        content_.Weight.Add(RtfBurden::Fonts, 1, rtf_cost::kFont);
    }
    QTextCharFormat format = ToCharFormat(state, content_.Tables);
    if (state.Link > 0) {
        const Link& link = links_[std::size_t(state.Link) - 1];
        format.setAnchor(true);
        format.setAnchorHref(link.Address);
        format.setProperty(RtfLinkInstruction, link.Instruction);
    }
    const int number = int(content_.Formats.size());
    content_.Formats.push_back(format);
    formatOf_.insert(state, number);
    return number;
}

} // namespace paneda
