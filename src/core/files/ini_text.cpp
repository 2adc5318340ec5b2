#include "core/files/ini_text.h"

#include "core/text/text_rules.h"
#include "core/text/windows_1252.h"

#include <QByteArrayView>
#include <QHashFunctions>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

constexpr QByteArrayView kMark("\xEF\xBB\xBF");
// No character of UTF-8 takes more bytes.
constexpr qsizetype kBytesOfCharacter = 4;

// One line without its end, and where the next one begins.
struct Line {
    qsizetype Begin = 0;
    qsizetype End = 0;
    qsizetype Next = 0;
};

Line LineAt(QByteArrayView text, qsizetype begin) {
    const auto* first = text.begin() + begin;
    const auto* end = std::find_if(first, text.end(), [](char c) { return c == '\n' || c == '\r'; });
    Line line{begin, end - text.begin(), end - text.begin()};
    if (line.End < text.size()) {
        const bool isPair =
            text[line.End] == '\r' && line.End + 1 < text.size() && text[line.End + 1] == '\n';
        line.Next = line.End + (isPair ? 2 : 1);
    }
    return line;
}

// The name between "[" and the last "]", or nothing for a line that is no heading. A heading without "]" is
// none.
QByteArrayView HeadingOf(QByteArrayView line, bool& isHeading) {
    const QByteArrayView text = line.trimmed();
    const qsizetype close = text.startsWith('[') ? text.lastIndexOf(']') : 0;
    isHeading = close > 0;
    return isHeading ? text.sliced(1, close - 1).trimmed() : QByteArrayView();
}

// The key of a line and the place of its "="; -1 for a line that holds no key.
std::pair<QByteArrayView, qsizetype> KeyOf(QByteArrayView line) {
    const qsizetype equals = line.indexOf('=');
    if (equals < 0)
        return {{}, -1};
    const QByteArrayView key = line.first(equals).trimmed();
    if (key.startsWith(';'))
        return {{}, -1};
    return {key, equals};
}

// A value as it is read from what follows the "=".
QByteArrayView ValueIn(QByteArrayView text) {
    const QByteArrayView value = text.trimmed();
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

QString DecodeIni(QByteArrayView bytes, bool utf8) {
    return utf8 ? QString::fromUtf8(bytes) : DecodeWindows1252(bytes);
}

// Whether a text reads as this name. Most are told apart without being decoded.
bool ReadsAs(QByteArrayView bytes, QStringView name, bool utf8) {
    const auto isWhole = [utf8](char c) { return !utf8 || (quint8(c) & 0xC0) != 0x80; };
    // A pair of the name is one character of the text, and a mark at the begin of a text is none.
    const auto isPairEnd = [](QChar c) { return c.isLowSurrogate(); };
    const qsizetype mark = utf8 && bytes.startsWith(kMark) ? 1 : 0;
    return std::count_if(bytes.begin(), bytes.end(), isWhole) - mark ==
               name.size() - std::count_if(name.begin(), name.end(), isPairEnd) &&
           SameName(DecodeIni(bytes, utf8), name);
}

// The seed differs from run to run, so that nobody can write a file whose names all have one hash.
std::size_t HashOfName(const QString& name, qsizetype section) {
    return qHashMulti(QHashSeed::globalSeed(), section, name.toCaseFolded());
}

template <class Entry>
void SortByHash(std::vector<Entry>& entries) {
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
        return a.Hash != b.Hash ? a.Hash < b.Hash : a.Begin < b.Begin;
    });
}

// The first entry of this hash that `isWanted` accepts, or null.
template <class Entry, class Wanted>
const Entry* FirstOf(const std::vector<Entry>& entries, std::size_t hash, Wanted isWanted) {
    auto entry =
        std::lower_bound(entries.begin(), entries.end(), hash,
                         [](const Entry& candidate, std::size_t wanted) { return candidate.Hash < wanted; });
    for (; entry != entries.end() && entry->Hash == hash; ++entry) {
        if (isWanted(*entry))
            return &*entry;
    }
    return nullptr;
}

// Of a value of any length no more than the limit is decoded.
QByteArrayView BeginOf(QByteArrayView value) {
    return value.first(std::min<qsizetype>(value.size(), kBytesOfCharacter * (kMaxIniValue + 1)));
}

QString OneLine(QStringView value) {
    QString result = value.toString();
    for (QChar& c : result) {
        if (c == u'\r' || c == u'\n' || c == u'\0')
            c = u' ';
    }
    return result;
}

QString ValueOf(QByteArrayView text, bool utf8) {
    const qsizetype nul = text.indexOf('\0');
    return CutToIniValue(DecodeIni(BeginOf(ValueIn(nul >= 0 ? text.first(nul) : text)), utf8));
}

} // namespace

QString CutToIniValue(QString text) {
    if (text.size() > kMaxIniValue) {
        const bool splitsPair = text[kMaxIniValue - 1].isHighSurrogate();
        text.truncate(splitsPair ? kMaxIniValue - 1 : kMaxIniValue);
    }
    return text;
}

QString FindIniValue(QByteArrayView text, QStringView section, QStringView key) {
    const bool utf8 = text.isValidUtf8();
    const QString wanted = TrimBlanks(section);
    bool isInSection = false;
    qsizetype next = utf8 && text.startsWith(kMark) ? kMark.size() : 0;
    while (next < text.size()) {
        const Line line = LineAt(text, next);
        next = line.Next > line.End ? line.Next : text.size();
        const QByteArrayView bytes = text.sliced(line.Begin, line.End - line.Begin);
        bool isHeading = false;
        const QByteArrayView heading = HeadingOf(bytes, isHeading);
        if (isHeading && isInSection)
            return {};
        if (isHeading) {
            isInSection = ReadsAs(heading, wanted, utf8);
        } else if (isInSection) {
            const auto [name, equals] = KeyOf(bytes);
            if (equals >= 0 && ReadsAs(name, key, utf8))
                return ValueOf(bytes.sliced(equals + 1), utf8);
        }
    }
    return {};
}

IniText::IniText(QByteArray bytes) : bytes_(std::move(bytes)) {
    utf8_ = QByteArrayView(bytes_).isValidUtf8();
    Index();
}

void IniText::Index() {
    sections_.clear();
    keys_.clear();
    Section* open = nullptr;
    qsizetype next = utf8_ && bytes_.startsWith(kMark) ? kMark.size() : 0;
    while (next < bytes_.size()) {
        const Line line = LineAt(bytes_, next);
        next = line.Next > line.End ? line.Next : bytes_.size();
        const QByteArrayView bytes = Slice(line.Begin, line.End);
        bool isHeading = false;
        const QByteArrayView name = HeadingOf(bytes, isHeading);
        if (isHeading) {
            const qsizetype nameBegin = name.data() - bytes_.constData();
            open = &sections_.emplace_back(
                Section{HashOfName(Decode(name), 0), nameBegin, nameBegin + name.size(), next, next, next});
        } else if (open) {
            open->End = next;
            if (!bytes.trimmed().isEmpty())
                open->Filled = next;
            AddKeyLine(*open, line.Begin, line.End);
        }
    }
    SortByHash(sections_);
    SortByHash(keys_);
}

void IniText::AddKeyLine(const Section& section, qsizetype begin, qsizetype end) {
    const auto [name, equals] = KeyOf(Slice(begin, end));
    if (equals >= 0)
        keys_.push_back({HashOfName(Decode(name), section.Begin), begin, begin + equals, end});
}

const IniText::Section* IniText::FindSection(QStringView name) const {
    const QString wanted = TrimBlanks(name);
    return FirstOf(sections_, HashOfName(wanted, 0), [&](const Section& section) {
        return SameName(Decode(Slice(section.NameBegin, section.NameEnd)), wanted);
    });
}

const IniText::KeyLine* IniText::FindKey(const Section& section, QStringView key) const {
    return FirstOf(keys_, HashOfName(key.toString(), section.Begin), [&](const KeyLine& line) {
        return line.Begin >= section.Begin && line.End <= section.End &&
               SameName(Decode(Slice(line.Begin, line.Equals).trimmed()), key);
    });
}

QString IniText::Value(QStringView section, QStringView key) const {
    const Section* found = FindSection(section);
    const KeyLine* line = found ? FindKey(*found, key) : nullptr;
    return line ? ValueOf(Slice(line->Equals + 1, line->End), utf8_) : QString();
}

IniResult IniText::SetValue(QStringView section, QStringView key, QStringView value) {
    if (const qsizetype size = QString::fromUtf8(ValueIn(OneLine(value).toUtf8())).size();
        size > kMaxIniValue)
        return tl::make_unexpected(QStringLiteral("\"%1\" has %2 characters; at most %3 can be kept.")
                                       .arg(key)
                                       .arg(size)
                                       .arg(kMaxIniValue));
    const QString heading = u'[' + OneLine(section) + u']';
    const QString entry = OneLine(key) + u'=' + OneLine(value);
    if (!utf8_ && !EncodeWindows1252(QString(heading + entry)))
        TurnIntoUtf8();
    const Section* found = FindSection(section);
    const KeyLine* line = found ? FindKey(*found, key) : nullptr;
    if (line)
        bytes_.replace(line->Equals + 1, line->End - line->Equals - 1, Encode(OneLine(value)));
    else if (found)
        AddLines(found->Filled, {entry});
    else
        AddLines(bytes_.size(), {heading, entry});
    // High bytes that happen to read as UTF-8 would be taken for it the next time.
    if (!utf8_ && QByteArrayView(bytes_).isValidUtf8())
        TurnIntoUtf8();
    else
        Index();
    return {};
}

void IniText::AddLines(qsizetype at, const QStringList& lines) {
    const QByteArray end = LineEnd();
    const QByteArrayView before = QByteArrayView(bytes_).first(at);
    const bool startsLine = before.isEmpty() || before.endsWith('\n') || before.endsWith('\r');
    QByteArray added = startsLine ? QByteArray() : end;
    for (const QString& line : lines)
        added += Encode(line) + end;
    bytes_.insert(at, added);
}

void IniText::TurnIntoUtf8() {
    bytes_ = DecodeWindows1252(bytes_).toUtf8();
    utf8_ = true;
    Index();
}

QByteArrayView IniText::Slice(qsizetype begin, qsizetype end) const {
    return QByteArrayView(bytes_).sliced(begin, end - begin);
}

QString IniText::Decode(QByteArrayView bytes) const {
    return DecodeIni(bytes, utf8_);
}

QByteArray IniText::Encode(const QString& text) const {
    if (!utf8_) {
        if (const auto encoded = EncodeWindows1252(text))
            return *encoded;
    }
    return text.toUtf8();
}

QByteArray IniText::LineEnd() const {
    const Line line = LineAt(bytes_, 0);
    return line.Next > line.End ? bytes_.mid(line.End, line.Next - line.End) : QByteArrayLiteral("\r\n");
}

} // namespace paneda
