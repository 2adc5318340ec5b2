#pragma once

#include <QByteArrayView>

namespace paneda {

// One step of RTF. Carriage returns and line feeds are no tokens and end a text.
struct RtfToken {
    enum class Type {
        Open,  // {
        Close, // }
        Word,  // \word, \word-12, or one of the signs \* \~ \- \_ \: \| \'  (the last one without hex digits)
        Text,  // plain bytes, as they stand; \\ \{ \} come as a text of one byte
        Byte,  // \'hh: Number is the byte
        Binary, // \bin: Text are the bytes
        End     // of the input
    };

    Type Kind = Type::End;
    // The word without backslash and number, the text or the bytes.
    QByteArrayView Text;
    // Number of a word; held to the range of int.
    int Number = 0;
    bool HasNumber = false;
    // Place of the token in the input: from Begin up to, and without, End.
    qsizetype Begin = 0;
    qsizetype End = 0;
};

// Cuts RTF into tokens. With any input, each call goes forward, and nothing behind the bytes is read.
class RtfTokenizer {
public:
    explicit RtfTokenizer(QByteArrayView bytes) : bytes_(bytes) {}

    RtfToken Next();

    // Skips the rest of the current group with the } that ends it. Returns the position of that }, or the end
    // of the input where it is missing.
    qsizetype SkipGroup();

    QByteArrayView Bytes() const { return bytes_; }
    qsizetype Position() const { return at_; }

private:
    RtfToken ReadControl();
    void ReadWord(RtfToken& token);
    void ReadHexByte(RtfToken& token);
    void ReadBinary(RtfToken& token);

    QByteArrayView bytes_;
    qsizetype at_ = 0;
};

// Value of a hex digit, -1 for any other byte.
constexpr int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

} // namespace paneda
