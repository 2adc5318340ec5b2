#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <tl/expected.hpp>

#include <cstddef>
#include <vector>

namespace paneda {

// A value is cut to this many characters (UTF-16 units) when it is read, and a longer one is not written. It
// is what a buffer of 255 with the NUL at its end takes.
inline constexpr int kMaxIniValue = 254;

// A text cut to this limit; a character of two units is not cut in two.
QString CutToIniValue(QString text);

// Of an error: why a value cannot be written, for the user, with the key and the limit.
using IniResult = tl::expected<void, QString>;

// The text of an INI file with the semantics of Windows profile files.
//
// Layout: lines that end in CR LF, LF or CR. "[name]" opens a section, up to the last "]" of the line;
// "key=value" is a key of the section above it; a line that begins with ";" is a comment; every other line is
// kept and ignored. Sections and keys compare without regard to case; of several with one name the first
// counts. Blanks around section, key and value are dropped, and so is a pair of quotes (" or ') around a
// value. A value ends at a NUL.
//
// A text is UTF-8, with or without a mark at its begin; one that is not valid UTF-8 is Windows-1252.
//
// The lines are read once and indexed, so that a lookup costs the same in a text of any size. The index of a
// text of the shortest possible lines takes up to 32 times the text's memory, that of a usual one less than
// twice.
class IniText {
public:
    IniText() = default;
    explicit IniText(QByteArray bytes);

    // The value of a key, at most kMaxIniValue characters; empty if there is none.
    QString Value(QStringView section, QStringView key) const;

    // Changes the line of this key, or adds it behind the last line of the section, or adds the section at
    // the end. All other bytes stay. Line breaks in the value become blanks. A value that Windows-1252 cannot
    // express turns a text of that encoding into UTF-8, since nothing else would keep every character. Fails,
    // and changes nothing, for a value that would be longer than kMaxIniValue when it is read.
    IniResult SetValue(QStringView section, QStringView key, QStringView value);

    const QByteArray& Bytes() const { return bytes_; }

private:
    // A heading, and the lines behind it up to the next one. All places are offsets in the text.
    struct Section {
        std::size_t Hash = 0; // of the name
        qsizetype NameBegin = 0;
        qsizetype NameEnd = 0;
        qsizetype Begin = 0;
        qsizetype Filled = 0; // behind the last line that is not blank
        qsizetype End = 0;
    };
    // A line "key=value".
    struct KeyLine {
        std::size_t Hash = 0; // of the section's place and the key
        qsizetype Begin = 0;
        qsizetype Equals = 0; // of the "="
        qsizetype End = 0;    // without the line's end
    };

    void Index();
    void AddKeyLine(const Section& section, qsizetype begin, qsizetype end);
    const Section* FindSection(QStringView name) const;
    const KeyLine* FindKey(const Section& section, QStringView key) const;
    void AddLines(qsizetype at, const QStringList& lines);
    void TurnIntoUtf8();
    QByteArrayView Slice(qsizetype begin, qsizetype end) const;
    QString Decode(QByteArrayView bytes) const;
    QByteArray Encode(const QString& text) const;
    QByteArray LineEnd() const;

    QByteArray bytes_;
    bool utf8_ = true;
    // Both by hash and then by place, so that the first of several with one name is found first.
    std::vector<Section> sections_;
    std::vector<KeyLine> keys_;
};

// The value that IniText::Value gives, for a single look-up: the text is walked up to the value and not
// indexed.
QString FindIniValue(QByteArrayView text, QStringView section, QStringView key);

} // namespace paneda
