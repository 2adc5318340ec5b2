#pragma once

#include <QByteArray>
#include <QStringView>

namespace paneda {

// Puts RTF together in 7 bits: escapes texts, and puts a blank between a control word and text.
class RtfOutput {
public:
    // For readers without Unicode each \u has a fallback: with code page 1252 (or 0) the byte of the
    // character, with any other code page a question mark.
    explicit RtfOutput(int codePage = 1252) : hasBytes_(codePage == 1252 || codePage == 0) {}

    void Open();
    void OpenStarred() { Open("\\*"); }
    void Close();

    // The word without its backslash.
    void Word(QByteArrayView word);
    void Word(QByteArrayView word, int value);

    // Text of one paragraph; a line separator becomes \line. The characters that Qt uses for frames and
    // objects are left out.
    void Text(QStringView text);

    // Words, or complete groups, as they are.
    void Raw(QByteArrayView rtf);

    // A line end, which readers ignore; keeps the lines of the file short.
    void LineEnd();

    // Binary data as hex digits, in lines.
    void Hex(QByteArrayView bytes);

    const QByteArray& Bytes() const { return bytes_; }
    void Reserve(qsizetype size) { bytes_.reserve(size); }

private:
    void Open(QByteArrayView words);
    void Character(char16_t unit);
    void Unicode(char16_t unit);
    void Plain(char byte);
    void Symbol(char symbol);

    QByteArray bytes_;
    bool hasBytes_ = true;
    bool afterWord_ = false;
};

} // namespace paneda
