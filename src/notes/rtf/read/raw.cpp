#include "notes/rtf/read/raw.h"

#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/read/tokens.h"
#include "notes/rtf/read/words.h"

#include <QStringBuilder>

#include <algorithm>
#include <cctype>

namespace paneda {

namespace {

void AppendSevenBit(QByteArray& kept, QByteArrayView bytes) {
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
            kept.append(c);
        else
            kept.append("\\'").append(QByteArray::number(byte, 16));
    }
}

// A backslash that would escape what is put behind it: in front of a byte that comes to be an escape itself,
// or at the end, where braces follow.
bool IsOddSign(const RtfToken& token) {
    return token.Kind == RtfToken::Type::Word &&
           (token.Text.isEmpty() ||
            (token.Text.size() == 1 && static_cast<unsigned char>(token.Text[0]) >= 0x80));
}

// Whether what follows could be taken for a part of the word.
bool IsOpenWord(const RtfToken& token, QByteArrayView source) {
    return token.Kind == RtfToken::Type::Word && token.End > token.Begin + 1 &&
           std::isalpha(static_cast<unsigned char>(source[token.Begin + 1])) != 0 &&
           source[token.End - 1] != ' ';
}

// Text of a token stream; \u skips its fallback, destinations that no reader shows are left out.
class PlainText {
public:
    PlainText(QByteArrayView source, const RtfEncoding& encoding, qsizetype limit)
        : tokens_(source), encoding_(encoding), limit_(limit) {}

    QString Read() {
        for (RtfToken token = tokens_.Next(); token.Kind != RtfToken::Type::End; token = tokens_.Next()) {
            Take(token);
            if (text_.size() + bytes_.size() > limit_)
                break;
        }
        Decode();
        return text_.first(std::min(text_.size(), limit_));
    }

private:
    void Take(const RtfToken& token) {
        if (token.Kind == RtfToken::Type::Text)
            bytes_.append(token.Text.sliced(Skip(token.Text.size())));
        else if (token.Kind == RtfToken::Type::Byte && Skip(1) == 0)
            bytes_.append(char(token.Number));
        else if (token.Kind == RtfToken::Type::Word)
            TakeWord(token);
        else if (token.Kind == RtfToken::Type::Open && IsApartFromText(tokens_))
            tokens_.SkipGroup();
    }

    void TakeWord(const RtfToken& token) {
        if (token.Text == "uc") {
            fallbacks_ = std::clamp(token.Number, 0, 255);
        } else if (token.Text == "u") {
            Decode();
            text_.append(QChar(char16_t(token.Number)));
            skip_ = fallbacks_;
        } else if (token.Text == "par" || token.Text == "line" || token.Text == "tab" ||
                   token.Text == "cell") {
            bytes_.append(' ');
        } else if (const char16_t unit = CharacterOfRtfWord(token.Text); unit != 0 && Skip(1) == 0) {
            Decode();
            text_.append(QChar(unit));
        }
    }

    // How many of `size` characters are a fallback that \u has made superfluous.
    qsizetype Skip(qsizetype size) {
        const qsizetype skipped = std::min<qsizetype>(size, skip_);
        skip_ -= int(skipped);
        return skipped;
    }

    void Decode() {
        text_ += DecodeBytes(bytes_, encoding_).value_or(QString::fromLatin1(bytes_));
        bytes_.clear();
    }

    RtfTokenizer tokens_;
    RtfEncoding encoding_;
    qsizetype limit_;
    int fallbacks_ = 1;
    int skip_ = 0;
    QByteArray bytes_;
    QString text_;
};

} // namespace

QByteArray KeptRtf(QByteArrayView source) {
    QByteArray kept;
    kept.reserve(source.size());
    qsizetype depth = 0;
    qsizetype copied = 0;
    qsizetype wordEnd = -1;
    RtfTokenizer tokens(source);
    const auto drop = [&](const RtfToken& token) {
        AppendSevenBit(kept, source.sliced(copied, token.Begin - copied));
        copied = token.End;
        if (token.Begin == wordEnd || token.Kind == RtfToken::Type::Binary)
            kept.append(' ');
    };
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        if (token.Kind == RtfToken::Type::Open)
            ++depth;
        if (token.Kind == RtfToken::Type::Close && --depth < 0) {
            // A closing brace too many would end the note where this is written.
            drop(token);
            depth = 0;
            continue;
        }
        const bool isBinary = token.Kind == RtfToken::Type::Binary;
        if (isBinary || IsOddSign(token))
            drop(token);
        if (isBinary)
            kept.append(token.Text.toByteArray().toHex());
        else if (IsOpenWord(token, source))
            wordEnd = token.End;
    }
    AppendSevenBit(kept, source.sliced(copied));
    if (depth > 0)
        kept.append(depth, '}');
    return kept;
}

bool IsApartFromText(RtfTokenizer inside) {
    RtfToken token = inside.Next();
    const bool isStarred = token.Kind == RtfToken::Type::Word && token.Text == "*";
    if (isStarred)
        token = inside.Next();
    const RtfWord meaning = token.Kind == RtfToken::Type::Word ? FindRtfWord(token.Text) : RtfWord::Bold;
    return meaning == RtfWord::Kept || meaning == RtfWord::Head || meaning == RtfWord::Picture ||
           meaning == RtfWord::FieldInstruction || meaning == RtfWord::ListText ||
           meaning == RtfWord::OldList || meaning == RtfWord::Dropped ||
           (isStarred && meaning == RtfWord::Unknown);
}

QString PlainTextOfRtf(QByteArrayView source, const RtfEncoding& encoding, qsizetype limit) {
    return PlainText(source, encoding, limit).Read();
}

QByteArray RtfOfText(QStringView text) {
    QByteArray rtf;
    rtf.reserve(text.size());
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        if (unit == u'\\' || unit == u'{' || unit == u'}')
            rtf.append('\\').append(char(unit));
        else if (unit == u'\t')
            rtf.append("\\tab ");
        else if (unit == QChar::LineSeparator)
            rtf.append("\\line ");
        else if (unit >= 0x20 && unit < 0x7F)
            rtf.append(char(unit));
        else
            rtf.append("\\u").append(QByteArray::number(qint16(unit))).append('?');
    }
    return rtf;
}

namespace {

bool IsName(char c) {
    return c >= 'A';
}

void DropWord(QByteArray& words, QByteArrayView name) {
    const QByteArray start = "\\" + name.toByteArray();
    for (qsizetype at = words.indexOf(start); at >= 0; at = words.indexOf(start, at + 1)) {
        qsizetype end = at + start.size();
        if (end < words.size() && IsName(words[end]) && words[end] != '\\')
            continue;
        end = words.indexOf('\\', end);
        words.remove(at, (end < 0 ? words.size() : end) - at);
        return;
    }
}

} // namespace

QByteArray SourceOfWord(const RtfToken& token) {
    QByteArray source = "\\" + token.Text.toByteArray();
    if (token.HasNumber)
        source += QByteArray::number(token.Number);
    return source;
}

void KeepWord(QByteArray& words, const RtfToken& token, bool isToggle) {
    DropWord(words, token.Text);
    if (isToggle && token.HasNumber && token.Number == 0)
        return;
    if (words.size() < kMaxKeptWords)
        words += SourceOfWord(token);
}

} // namespace paneda
