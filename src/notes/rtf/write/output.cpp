#include "notes/rtf/write/output.h"

#include "core/text/windows_1252.h"

#include <QChar>

namespace paneda {

namespace {

constexpr qsizetype kHexBytesPerLine = 64;
constexpr char kHexDigits[] = "0123456789abcdef";

// Bytes of symbol fonts stand in this range of the private use area.
bool IsSymbol(char16_t unit) {
    return unit >= 0xf020 && unit <= 0xf0ff;
}

// Marks that Qt puts into a text for frames, objects and paragraph ends.
bool IsMark(char16_t unit) {
    return unit == 0 || unit == 0xfdd0 || unit == 0xfdd1 || unit == QChar::ObjectReplacementCharacter ||
           unit == QChar::ParagraphSeparator;
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
    return (c >= '0' && c <= '9') || c == '-';
}

// Behind a word these would be taken for a part of it, or a blank for its end.
bool NeedsDelimiter(char c) {
    return IsLetter(c) || IsDigit(c) || c == ' ';
}

bool EndsInWord(QByteArrayView rtf) {
    const char* at = rtf.end();
    while (at != rtf.begin() && IsDigit(at[-1]))
        --at;
    const char* letters = at;
    while (at != rtf.begin() && IsLetter(at[-1]))
        --at;
    return at != letters && at != rtf.begin() && at[-1] == '\\';
}

} // namespace

void RtfOutput::Open() {
    Open({});
}

void RtfOutput::Open(QByteArrayView words) {
    bytes_.append('{').append(words.data(), words.size());
    afterWord_ = false;
}

void RtfOutput::Close() {
    bytes_.append('}');
    afterWord_ = false;
}

void RtfOutput::Word(QByteArrayView word) {
    bytes_.append('\\').append(word.data(), word.size());
    afterWord_ = true;
}

void RtfOutput::Word(QByteArrayView word, int value) {
    Word(word);
    bytes_.append(QByteArray::number(value));
}

void RtfOutput::Raw(QByteArrayView rtf) {
    if (rtf.isEmpty())
        return;
    if (afterWord_ && NeedsDelimiter(rtf.front()))
        bytes_.append(' ');
    bytes_.append(rtf.data(), rtf.size());
    afterWord_ = EndsInWord(rtf);
}

void RtfOutput::LineEnd() {
    bytes_.append("\r\n");
    afterWord_ = false;
}

void RtfOutput::Hex(QByteArrayView bytes) {
    const qsizetype lines = (bytes.size() + kHexBytesPerLine - 1) / kHexBytesPerLine;
    const qsizetype start = bytes_.size();
    bytes_.resize(start + bytes.size() * 2 + lines * 2);
    char* to = bytes_.data() + start;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (i % kHexBytesPerLine == 0) {
            *to++ = '\r';
            *to++ = '\n';
        }
        *to++ = kHexDigits[(bytes[i] >> 4) & 0xf];
        *to++ = kHexDigits[bytes[i] & 0xf];
    }
    afterWord_ = false;
}

void RtfOutput::Text(QStringView text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!c.isSurrogate()) {
            Character(c.unicode());
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            Unicode(c.unicode());
            Unicode(text.at(++i).unicode());
        } else {
            Unicode(QChar::ReplacementCharacter);
        }
    }
}

void RtfOutput::Character(char16_t unit) {
    if (unit == u'\\' || unit == u'{' || unit == u'}')
        Symbol(char(unit));
    else if (unit >= 0x20 && unit < 0x7f)
        Plain(char(unit));
    else if (unit == u'\t')
        Word("tab");
    else if (unit == QChar::LineSeparator || unit == u'\n')
        Word("line");
    else if (unit == QChar::Nbsp)
        Symbol('~');
    else if (unit == QChar::SoftHyphen)
        Symbol('-');
    else if (unit == 0x2011) // the hyphen that does not break
        Symbol('_');
    else if (!IsMark(unit))
        Unicode(unit);
}

void RtfOutput::Plain(char byte) {
    if (afterWord_)
        bytes_.append(' ');
    bytes_.append(byte);
    afterWord_ = false;
}

void RtfOutput::Symbol(char symbol) {
    bytes_.append('\\').append(symbol);
    afterWord_ = false;
}

void RtfOutput::Unicode(char16_t unit) {
    Word("u", static_cast<qint16>(unit));
    // The question mark as a byte too: a plain converter drops a whole word of text with one of its own.
    char fallback = '?';
    if (IsSymbol(unit)) {
        fallback = char(unit & 0xff);
    } else if (hasBytes_ && unit >= 0x80) {
        if (const std::optional<QByteArray> byte = EncodeWindows1252(QStringView(&unit, 1)))
            fallback = byte->front();
    }
    bytes_.append("\\'").append(kHexDigits[(fallback >> 4) & 0xf]).append(kHexDigits[fallback & 0xf]);
    afterWord_ = false;
}

} // namespace paneda
