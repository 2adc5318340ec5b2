#include "core/files/web_addresses.h"

#include "core/files/file_io.h"
#include "core/text/text_rules.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>

namespace paneda {

namespace {

constexpr qsizetype kShortestScheme = 2; // characters
constexpr qsizetype kLongestShown = 120; // characters of an address in a message

// Where the rest of an address begins, behind its scheme and ":"; 0 without a scheme.
qsizetype EndOfScheme(const QString& text) {
    const qsizetype colon = text.indexOf(u':');
    const auto isLetter = [](QChar c) { return c.isLetter() && c.unicode() < 0x80; };
    if (colon < kShortestScheme || !isLetter(text[0]))
        return 0;
    const bool isScheme = std::all_of(text.begin(), text.begin() + colon, [&](QChar c) {
        return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'+' || c == u'.' || c == u'-';
    });
    return isScheme ? colon + 1 : 0;
}

// These would end or quote a word of a command line; no address holds them as they are.
QString AsOneWord(const QString& text) {
    QString word;
    for (const QChar c : text) {
        if (c.isSpace() || QStringView(u"\"\\<>^`{|}").contains(c))
            word += QString::fromLatin1(QUrl::toPercentEncoding(QString(c)));
        else
            word += c;
    }
    return word;
}

bool HasControls(const QString& text) {
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.category() == QChar::Other_Control; });
}

tl::expected<QString, QString> CheckedWord(const QString& text) {
    const QString word = AsOneWord(TrimBlanks(text));
    if (word.isEmpty())
        return tl::make_unexpected(QStringLiteral("It holds no address. Give it one."));
    if (HasControls(text))
        return tl::make_unexpected(QStringLiteral("The address holds characters that no address has."));
    return word;
}

// Whether a file address names what a browser shows and no system runs.
bool IsShownFile(const QString& address) {
    static const QStringList kShown{QStringLiteral("htm"), QStringLiteral("html"), QStringLiteral("xhtml"),
                                    QStringLiteral("pdf"), QStringLiteral("txt"),  QStringLiteral("png"),
                                    QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("gif"),
                                    QStringLiteral("svg"), QStringLiteral("webp")};
    const QString path = QUrl(address).path(QUrl::FullyDecoded);
    return !HasControls(path) &&
           kShown.contains(path.sliced(path.lastIndexOf(u'.') + 1), Qt::CaseInsensitive);
}

// "host", "host/page", "host:8080/page"; a name, or an address of numbers.
bool BeginsWithHost(const QString& text) {
    const auto isHost = [](QChar c) { return c.isLetterOrNumber() || c == u'.' || c == u'-' || c == u'_'; };
    const auto isEnd = [](QChar c) { return c == u'/' || c == u'?' || c == u'#'; };
    const auto end = std::find_if(text.begin(), text.end(), isEnd);
    const auto colon = std::find(text.begin(), end, u':');
    const bool hasPort = end - colon > 1 && std::all_of(colon + 1, end, [](QChar c) { return c.isDigit(); });
    return colon != text.begin() && text[0].isLetterOrNumber() && std::all_of(text.begin(), colon, isHost) &&
           (colon == end || hasPort);
}

tl::unexpected<QString> Refused(const QString& address, const QString& reason) {
    const bool isLong = address.size() > kLongestShown;
    const QString shown = isLong ? QString(address.first(kLongestShown) + QStringLiteral("...")) : address;
    return tl::make_unexpected(QString(u'"' + shown + QStringLiteral("\" ") + reason));
}

QString FileNameOf(HelpTopic topic) {
    switch (topic) {
    case HelpTopic::Buttons:
        return QStringLiteral("buttons.html");
    case HelpTopic::Categories:
        return QStringLiteral("categories.html");
    case HelpTopic::Styles:
        return QStringLiteral("styles.html");
    case HelpTopic::Skins:
        return QStringLiteral("skins.html");
    case HelpTopic::PortablePaths:
        return QStringLiteral("portable-paths.html");
    case HelpTopic::Triggers:
        return QStringLiteral("triggers.html");
    case HelpTopic::Index:
        break;
    }
    return QStringLiteral("index.html");
}

} // namespace

// No regular expression: Qt keeps data for them in each thread, and in a static build for Windows the program
// crashes when a thread that has such data ends.
bool IsAddress(const QString& text) {
    return text.startsWith(u"www.", Qt::CaseInsensitive) || EndOfScheme(text) > 0;
}

tl::expected<QString, QString> BrowserAddress(const QString& text) {
    const auto word = CheckedWord(text);
    if (!word)
        return word;
    const QString& address = *word;
    const qsizetype at = EndOfScheme(address);
    const QString scheme = address.first(at).toLower();
    const QString rest = address.sliced(at);
    const bool isWeb = scheme == u"http:" || scheme == u"https:" || scheme == u"ftp:";
    if ((isWeb && rest.startsWith(QStringLiteral("//"))) || (scheme == u"mailto:" && !rest.isEmpty()))
        return address;
    if (scheme == u"file:") {
        if (IsShownFile(address))
            return address;
        return Refused(address, QStringLiteral("is nothing that a browser shows. Choose the file itself as "
                                               "the target."));
    }
    if (BeginsWithHost(address))
        return QStringLiteral("http://") + address;
    return Refused(address, QStringLiteral("is no address for a browser. It has to begin with http://, "
                                           "https://, ftp://, mailto:, file:// or the name of a host."));
}

tl::expected<QString, QString> AddressOfAnyScheme(const QString& text) {
    const auto address = BrowserAddress(text);
    return address || !IsAddress(text) ? address : CheckedWord(text);
}

WebAddresses WebAddressesOf(const QString& homepage) {
    const QString site = homepage.endsWith(u'/') ? homepage.chopped(1) : homepage;
    return {.Home = homepage,
            .Donate = site + QStringLiteral("/donate.htm"),
            .Wallpapers = site + QStringLiteral("/w"),
            .Search = site + QStringLiteral("/search"),
            .Skins = site + QStringLiteral("/skin.htm"),
            .Help = site + QStringLiteral("/help.htm")};
}

QString HelpAddress(HelpTopic topic, const QString& appFolder, const QString& homepage) {
    const QString file = FindEntry(FindEntry(appFolder, QStringLiteral("help")), FileNameOf(topic));
    if (!QFileInfo(file).isFile())
        return WebAddressesOf(homepage).Help;
    return QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded());
}

} // namespace paneda
