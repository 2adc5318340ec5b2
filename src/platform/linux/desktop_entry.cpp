#include "platform/linux/desktop_entry.h"

#include "core/files/file_io.h"

#include <optional>

namespace paneda {

namespace {

constexpr qint64 kMaxEntryFile = 1024 * 1024;

// The escapes of the file format: \s \n \t \r and \\.
QString Unescaped(const QString& value) {
    QString result;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != u'\\' || i + 1 == value.size()) {
            result += value[i];
            continue;
        }
        const QChar code = value[++i];
        if (code == u's')
            result += u' ';
        else if (code == u'n')
            result += u'\n';
        else if (code == u't')
            result += u'\t';
        else if (code == u'r')
            result += u'\r';
        else if (code == u'\\')
            result += u'\\';
        else
            result += QStringLiteral("\\") + code;
    }
    return result;
}

void SetKey(DesktopEntry& entry, const QByteArray& key, const QString& value) {
    if (key == "Type")
        entry.Type = value;
    else if (key == "Name")
        entry.Name = value;
    else if (key == "Exec")
        entry.Exec = value;
    else if (key == "Path")
        entry.Path = value;
    else if (key == "Icon")
        entry.Icon = value;
    else if (key == "URL")
        entry.Url = value;
    else if (key == "Terminal")
        entry.Terminal = value == u"true";
}

// Splits a command line at blanks. Double quotes keep a word together; inside them a backslash escapes the
// next character. Nothing if a quote is not closed.
std::optional<QStringList> SplitCommand(const QString& line) {
    QStringList words;
    QString word;
    bool inWord = false;
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (c == u'"') {
            quoted = !quoted;
            inWord = true;
        } else if (quoted && c == u'\\' && i + 1 < line.size()) {
            word += line[++i];
        } else if (!quoted && (c == u' ' || c == u'\t' || c == u'\n')) {
            if (inWord)
                words.append(word);
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord)
        words.append(word);
    return quoted ? std::nullopt : std::optional(words);
}

// The texts that replace one field code; none for a deprecated or unknown code.
QStringList FieldValue(QChar code, const DesktopEntry& entry, const QString& entryFile,
                       const QStringList& files) {
    if (code == u'f' || code == u'u')
        return files.mid(0, 1);
    if (code == u'F' || code == u'U')
        return files;
    if (code == u'i' && !entry.Icon.isEmpty())
        return {QStringLiteral("--icon"), entry.Icon};
    if (code == u'c')
        return {entry.Name};
    if (code == u'k')
        return {entryFile};
    return {};
}

// Field codes count as words of their own alone and vanish from a longer word: that word may be a script, and
// the name of a file must not become a part of it.
QString WithoutCodes(const QString& word) {
    QString result;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word[i] != u'%' || i + 1 == word.size())
            result += word[i];
        else if (word[++i] == u'%')
            result += u'%';
    }
    return result;
}

} // namespace

DesktopEntry ParseDesktopEntry(const QByteArray& bytes) {
    DesktopEntry entry;
    bool inGroup = false;
    for (const QByteArray& raw : bytes.split('\n')) {
        const QByteArray line = raw.trimmed();
        const qsizetype equals = line.indexOf('=');
        if (line.startsWith('['))
            inGroup = line == "[Desktop Entry]";
        else if (inGroup && equals > 0 && !line.startsWith('#'))
            SetKey(entry, line.first(equals).trimmed(),
                   Unescaped(QString::fromUtf8(line.mid(equals + 1).trimmed())));
    }
    return entry;
}

DesktopEntry ReadDesktopEntry(const QString& file) {
    return ParseDesktopEntry(ReadFileBytes(file, kMaxEntryFile).value_or(QByteArray()));
}

QStringList ExpandExec(const DesktopEntry& entry, const QString& entryFile, const QStringList& files) {
    const std::optional<QStringList> words = SplitCommand(entry.Exec);
    if (!words || words->isEmpty())
        return {};
    QStringList result;
    bool takesFiles = false;
    for (const QString& word : *words) {
        const bool isCode = word.size() == 2 && word[0] == u'%' && word[1] != u'%';
        takesFiles = takesFiles || (isCode && QStringView(u"fFuU").contains(word[1]));
        if (isCode)
            result += FieldValue(word[1], entry, entryFile, files);
        else
            result.append(WithoutCodes(word));
    }
    return takesFiles ? result : result + files;
}

} // namespace paneda
