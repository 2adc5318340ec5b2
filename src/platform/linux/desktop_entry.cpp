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

// A list of the file format: each text ends with a semicolon, the last one may lack it.
QStringList ListIn(const QString& value) {
    return value.split(u';', Qt::SkipEmptyParts);
}

struct TextKey {
    const char* Key;
    QString DesktopEntry::*Value;
};
struct ListKey {
    const char* Key;
    QStringList DesktopEntry::*Value;
};
struct FlagKey {
    const char* Key;
    bool DesktopEntry::*Value;
};

constexpr TextKey kTexts[] = {{"Type", &DesktopEntry::Type},      {"Name", &DesktopEntry::Name},
                              {"Exec", &DesktopEntry::Exec},      {"Path", &DesktopEntry::Path},
                              {"Icon", &DesktopEntry::Icon},      {"URL", &DesktopEntry::Url},
                              {"TryExec", &DesktopEntry::TryExec}};
constexpr ListKey kLists[] = {{"Categories", &DesktopEntry::Categories},
                              {"OnlyShowIn", &DesktopEntry::OnlyShowIn},
                              {"NotShowIn", &DesktopEntry::NotShowIn}};
constexpr FlagKey kFlags[] = {{"Terminal", &DesktopEntry::Terminal},
                              {"NoDisplay", &DesktopEntry::NoDisplay},
                              {"Hidden", &DesktopEntry::Hidden}};

QString TextOf(QByteArrayView value) {
    return Unescaped(QString::fromUtf8(value));
}

void SetKey(DesktopEntry& entry, QByteArrayView key, QByteArrayView value) {
    for (const TextKey& text : kTexts) {
        if (key == text.Key)
            entry.*text.Value = TextOf(value);
    }
    for (const ListKey& list : kLists) {
        if (key == list.Key)
            entry.*list.Value = ListIn(TextOf(value));
    }
    for (const FlagKey& flag : kFlags) {
        if (key == flag.Key)
            entry.*flag.Value = value == "true";
    }
}

// The place of the language in "Name[de]" among the wanted ones; their number for any other key.
qsizetype RankOf(QByteArrayView key, const QStringList& languages) {
    const bool isName = key.startsWith("Name[") && key.endsWith(']');
    const qsizetype rank = isName ? languages.indexOf(QString::fromUtf8(key.sliced(5).chopped(1))) : -1;
    return rank < 0 ? languages.size() : rank;
}

// Cuts the first line off, without its end and without blanks around it.
QByteArrayView TakeLine(QByteArrayView& rest) {
    const qsizetype end = rest.indexOf('\n');
    const QByteArrayView line = end < 0 ? rest : rest.first(end);
    rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
    return line.trimmed();
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

QStringList EntryLanguages() {
    QStringList locales;
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (locales.isEmpty() && !qEnvironmentVariableIsEmpty(variable))
            locales = {qEnvironmentVariable(variable)};
    }
    const bool isPlain =
        locales.isEmpty() || locales[0] == u'C' || locales[0].startsWith(QStringLiteral("C."));
    if (isPlain)
        return {};
    locales = qEnvironmentVariable("LANGUAGE").split(u':', Qt::SkipEmptyParts) + locales;
    QStringList languages;
    for (const QString& locale : locales) {
        const QString modifier = locale.contains(u'@') ? u'@' + locale.section(u'@', 1) : QString();
        const QString country = locale.section(u'@', 0, 0).section(u'.', 0, 0);
        const QString language = country.section(u'_', 0, 0);
        languages += {country + modifier, country, language + modifier, language};
    }
    languages.removeDuplicates();
    return languages;
}

DesktopEntry ParseDesktopEntry(const QByteArray& bytes, const QStringList& languages) {
    DesktopEntry entry;
    bool inGroup = false;
    qsizetype titleRank = languages.size();
    // By views: an entry has hundreds of lines, most of them translations of keys that are not used here.
    for (QByteArrayView rest(bytes); !rest.isEmpty();) {
        const QByteArrayView line = TakeLine(rest);
        const qsizetype equals = line.indexOf('=');
        if (line.startsWith('['))
            inGroup = line == "[Desktop Entry]";
        if (!inGroup || equals <= 0 || line.startsWith('#') || line.startsWith('['))
            continue;
        const QByteArrayView key = line.first(equals).trimmed();
        const QByteArrayView value = line.sliced(equals + 1).trimmed();
        const qsizetype rank = RankOf(key, languages);
        if (!key.endsWith(']'))
            SetKey(entry, key, value);
        if (rank < titleRank) {
            entry.Title = TextOf(value);
            titleRank = rank;
        }
    }
    if (entry.Title.isEmpty())
        entry.Title = entry.Name;
    return entry;
}

DesktopEntry ReadDesktopEntry(const QString& file, const QStringList& languages) {
    return ParseDesktopEntry(ReadFileBytes(file, kMaxEntryFile).value_or(QByteArray()), languages);
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
