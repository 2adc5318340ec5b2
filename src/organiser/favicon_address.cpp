#include "organiser/favicon_address.h"

#include "core/files/ini_file.h"

namespace paneda {

QString SiteIconAddress(const QString& address) {
    if (address.isEmpty())
        return {};
    const QString scheme = QStringLiteral("http");
    QString site =
        address.startsWith(scheme, Qt::CaseInsensitive) ? address : QStringLiteral("http://") + address;
    const qsizetype slashes = site.indexOf(QLatin1String("//"));
    if (slashes < 0)
        return {};
    const qsizetype end = site.indexOf(u'/', slashes + 4);
    if (end >= 0)
        site.truncate(end + 1);
    if (!site.endsWith(u'/'))
        site += u'/';
    return site + QStringLiteral("favicon.ico");
}

QString FaviconAddress(const QString& source, FaviconKind kind) {
    if (kind == FaviconKind::Address)
        return SiteIconAddress(source);
    const QString section = QStringLiteral("InternetShortcut");
    const QString own = ReadIni(section, QStringLiteral("IconFile"), source);
    if (!own.isEmpty())
        return own;
    return SiteIconAddress(ReadIni(section, QStringLiteral("URL"), source));
}

} // namespace paneda
