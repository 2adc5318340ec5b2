#include "notes/rtf/read/tokens.h"

#include <algorithm>
#include <limits>

namespace paneda {

namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

bool EndsText(char c) {
    return c == '\\' || c == '{' || c == '}' || IsLineEnd(c);
}

} // namespace

RtfToken RtfTokenizer::Next() {
    while (at_ < bytes_.size() && IsLineEnd(bytes_[at_]))
        ++at_;
    RtfToken token;
    token.Begin = at_;
    if (at_ >= bytes_.size()) {
        token.End = at_;
        return token;
    }
    const char first = bytes_[at_];
    if (first == '\\')
        return ReadControl();
    if (first == '{' || first == '}') {
        token.Kind = first == '{' ? RtfToken::Type::Open : RtfToken::Type::Close;
        ++at_;
    } else {
        token.Kind = RtfToken::Type::Text;
        const auto* end = std::find_if(bytes_.begin() + at_, bytes_.end(), EndsText);
        at_ = end - bytes_.begin();
        token.Text = bytes_.sliced(token.Begin, at_ - token.Begin);
    }
    token.End = at_;
    return token;
}

RtfToken RtfTokenizer::ReadControl() {
    RtfToken token;
    token.Begin = at_++;
    token.Kind = RtfToken::Type::Word;
    const char sign = at_ < bytes_.size() ? bytes_[at_] : '\0';
    if (IsLetter(sign)) {
        ReadWord(token);
    } else if (sign == '\'') {
        ReadHexByte(token);
    } else if (at_ < bytes_.size()) {
        ++at_;
        if (sign == '\\' || sign == '{' || sign == '}')
            token.Kind = RtfToken::Type::Text;
        token.Text = IsLineEnd(sign) ? QByteArrayView("par")
                     : sign == '\t'  ? QByteArrayView("tab")
                                     : bytes_.sliced(at_ - 1, 1);
    }
    token.End = at_;
    return token;
}

void RtfTokenizer::ReadWord(RtfToken& token) {
    const qsizetype begin = at_;
    while (at_ < bytes_.size() && IsLetter(bytes_[at_]))
        ++at_;
    token.Text = bytes_.sliced(begin, at_ - begin);
    const bool negative = at_ + 1 < bytes_.size() && bytes_[at_] == '-' && IsDigit(bytes_[at_ + 1]);
    if (negative)
        ++at_;
    qint64 number = 0;
    while (at_ < bytes_.size() && IsDigit(bytes_[at_])) {
        number = std::min<qint64>(number * 10 + (bytes_[at_++] - '0'), std::numeric_limits<int>::max());
        token.HasNumber = true;
    }
    token.Number = int(negative ? -number : number);
    if (at_ < bytes_.size() && bytes_[at_] == ' ')
        ++at_;
    if (token.Text == "bin")
        ReadBinary(token);
}

void RtfTokenizer::ReadHexByte(RtfToken& token) {
    ++at_;
    const int high = at_ + 1 < bytes_.size() ? HexValue(bytes_[at_]) : -1;
    const int low = high >= 0 ? HexValue(bytes_[at_ + 1]) : -1;
    if (low < 0) {
        token.Text = bytes_.sliced(at_ - 1, 1);
        return;
    }
    at_ += 2;
    token.Kind = RtfToken::Type::Byte;
    token.Number = high * 16 + low;
}

void RtfTokenizer::ReadBinary(RtfToken& token) {
    const qsizetype length = std::min<qsizetype>(std::max(token.Number, 0), bytes_.size() - at_);
    token.Kind = RtfToken::Type::Binary;
    token.Text = bytes_.sliced(at_, length);
    at_ += length;
}

qsizetype RtfTokenizer::SkipGroup() {
    qsizetype depth = 1;
    while (at_ < bytes_.size()) {
        const char c = bytes_[at_];
        if (c == '\\') {
            ReadControl();
            continue;
        }
        ++at_;
        if (c == '{')
            ++depth;
        else if (c == '}' && --depth == 0)
            return at_ - 1;
    }
    return at_;
}

} // namespace paneda
