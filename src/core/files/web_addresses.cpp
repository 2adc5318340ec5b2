#include "core/files/web_addresses.h"

#include "core/files/file_io.h"

#include <QFileInfo>
#include <QUrl>

namespace paneda {

namespace {

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
