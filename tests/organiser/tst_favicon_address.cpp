#include "organiser/favicon_address.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace paneda;

class tst_FaviconAddress : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void addresses();
};

void tst_FaviconAddress::addresses() {
    for (const auto& [address, icon] : std::initializer_list<std::pair<const char*, const char*>>{
             {"http://example.org/a/b.html", "http://example.org/favicon.ico"},
             {"HTTPS://example.org:8080", "HTTPS://example.org:8080/favicon.ico"},
             {"example.org/a", "http://example.org/favicon.ico"},
             {"ab/c", "http://ab/favicon.ico"},
             {"http://a/b/c", "http://a/b/favicon.ico"},
             {"httpbin.org/a", ""},
             {"", ""}})
        QCOMPARE(SiteIconAddress(QLatin1String(address)), QLatin1String(icon));

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a.url"));
    const auto written = [&file](const QByteArray& keys) {
        QFile shortcut(file);
        return shortcut.open(QIODevice::WriteOnly) && shortcut.write("[InternetShortcut]\r\n" + keys) > 0;
    };
    const QByteArray url = "URL=http://example.org/a\r\n";
    QVERIFY(written(url));
    QCOMPARE(FaviconAddress(file, FaviconKind::Shortcut), QStringLiteral("http://example.org/favicon.ico"));
    QVERIFY(written(url + "IconFile=http://icons.example.org/x.png?1\r\n"));
    QCOMPARE(FaviconAddress(file, FaviconKind::Shortcut), QStringLiteral("http://icons.example.org/x.png?1"));
    QCOMPARE(FaviconAddress(QStringLiteral("example.org"), FaviconKind::Address),
             QStringLiteral("http://example.org/favicon.ico"));
}

QTEST_GUILESS_MAIN(tst_FaviconAddress)

#include "tst_favicon_address.moc"
