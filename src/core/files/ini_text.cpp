#include "core/files/ini_text.h"

#include "core/text/text_rules.h"
#include "core/text/windows_1252.h"

#include <QByteArrayView>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

constexpr QByteArrayView kMark("\xEF\xBB\xBF");

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
    if (line.End < text.size())
        line.Next = line.End + (text.sliced(line.End).startsWith("\r\n") ? 2 : 1);
    return line;
}

// The name between "[" and the last "]", or nothing for a line that is no heading. A heading without "]" is
// none.
QByteArrayView HeadingOf(QByteArrayView line, bool& isHeading) {
    const QByteArrayView text = line.trimmed();
    const qsizetype close = text.lastIndexOf(']');
    isHeading = text.startsWith('[') && close > 0;
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

QString CutToLimit(QString value) {
    if (value.size() <= kMaxIniValue)
        return value;
    const bool splitsPair = value[kMaxIniValue - 1].isHighSurrogate();
    value.truncate(splitsPair ? kMaxIniValue - 1 : kMaxIniValue);
    return value;
}

QString OneLine(QStringView value) {
    QString result = value.toString();
    for (QChar& c : result) {
        if (c == u'\r' || c == u'\n' || c == u'\0')
            c = u' ';
    }
    return result;
}

} // namespace

IniText::IniText(QByteArray bytes) : bytes_(std::move(bytes)) {
    utf8_ = QByteArrayView(bytes_).isValidUtf8();
    IndexSections();
}

void IniText::IndexSections() {
    sections_.clear();
    Span* open = nullptr;
    qsizetype at = utf8_ && bytes_.startsWith(kMark) ? kMark.size() : 0;
    while (at < bytes_.size()) {
        const Line line = LineAt(bytes_, at);
        const qsizetype next = line.Next > line.End ? line.Next : bytes_.size();
        bool isHeading = false;
        const QByteArrayView name =
            HeadingOf(QByteArrayView(bytes_).sliced(line.Begin, line.End - line.Begin), isHeading);
        if (isHeading) {
            const QString folded = Decode(name).toCaseFolded();
            open = sections_.contains(folded) ? nullptr : &sections_[folded];
            if (open)
                open->Begin = next;
        }
        if (open)
            open->End = next;
        at = next;
    }
}

const IniText::Span* IniText::FindSection(QStringView section) const {
    const auto found = sections_.constFind(TrimBlanks(section).toCaseFolded());
    return found == sections_.constEnd() ? nullptr : &*found;
}

QString IniText::Value(QStringView section, QStringView key) const {
    const Span* span = FindSection(section);
    const QByteArrayView text = bytes_;
    for (qsizetype at = span ? span->Begin : 0; span && at < span->End;) {
        const Line line = LineAt(text, at);
        const QByteArrayView bytes = text.sliced(line.Begin, line.End - line.Begin);
        const auto [name, equals] = KeyOf(bytes);
        if (equals >= 0 && SameName(Decode(name), key)) {
            QByteArrayView value = bytes.sliced(equals + 1);
            const qsizetype nul = value.indexOf('\0');
            if (nul >= 0)
                value = value.first(nul);
            return CutToLimit(Decode(ValueIn(value)));
        }
        at = line.Next > line.End ? line.Next : span->End;
    }
    return {};
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
    if (const Span* span = FindSection(section))
        SetInSection(*span, key, entry);
    else
        AddLines(bytes_.size(), {heading, entry});
    // High bytes that happen to read as UTF-8 would be taken for it the next time.
    if (!utf8_ && QByteArrayView(bytes_).isValidUtf8())
        TurnIntoUtf8();
    IndexSections();
    return {};
}

void IniText::SetInSection(const Span& span, QStringView key, const QString& entry) {
    qsizetype behindLast = span.Begin;
    for (qsizetype at = span.Begin; at < span.End;) {
        const Line line = LineAt(bytes_, at);
        const QByteArrayView bytes = QByteArrayView(bytes_).sliced(line.Begin, line.End - line.Begin);
        const auto [name, equals] = KeyOf(bytes);
        if (equals >= 0 && SameName(Decode(name), key)) {
            const QByteArray value = Encode(entry.sliced(entry.indexOf(u'=', key.size()) + 1));
            bytes_.replace(line.Begin + equals + 1, line.End - line.Begin - equals - 1, value);
            return;
        }
        const qsizetype next = line.Next > line.End ? line.Next : span.End;
        if (!bytes.trimmed().isEmpty())
            behindLast = next;
        at = next;
    }
    AddLines(behindLast, {entry});
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
    IndexSections();
}

QString IniText::Decode(QByteArrayView bytes) const {
    return utf8_ ? QString::fromUtf8(bytes) : DecodeWindows1252(bytes);
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
