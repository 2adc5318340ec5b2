#pragma once

#include <QByteArray>
#include <QStringView>

namespace paneda {

// Puts RTF together: 7 bits, a blank behind a control word where text follows it, texts escaped.
class RtfOutput {
public:
    // With 1252 (or 0) the characters of that code page get their byte as fallback for readers that know no
    // Unicode; with any other only a question mark.
    explicit RtfOutput(int codePage = 1252) : hasBytes_(codePage == 1252 || codePage == 0) {}

    void Open();
    void OpenStarred() { Open("\\*"); }
    void Close();

    // The word without its backslash.
    void Word(QByteArrayView word);
    void Word(QByteArrayView word, int value);

    // A text of one paragraph; a line separator is a new line within it. What Qt marks frames and objects
    // with is left out.
    void Text(QStringView text);

    // Words or balanced groups as they are.
    void Raw(QByteArrayView rtf);

    // Where a reader has to see a delimiter and nothing else; keeps the lines of the file short.
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
