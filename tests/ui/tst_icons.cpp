#include "support/store_builder.h"
#include "ui/fake_downloader.h"
#include "ui/organiser/fetch_favicon.h"
#include "ui/panel/frmWait.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <QTimer>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray Picture(const char* format, const QColor& color) {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

} // namespace

class tst_Icons : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void favicon();
};

void tst_Icons::favicon() {
    const StoreBuilder store;
    const QString target = store.Path(u"site.ico"_s);
    const QString address = u"http://site.test/favicon.ico"_s;
    FakeDownloader downloader;
    const auto fetch = [&](const DownloadResult& answer) {
        downloader.Answers.insert_or_assign(address, answer);
        return FetchFavicon(u"site.test/page"_s, target, FaviconKind::Address, downloader, nullptr);
    };
    const auto kept = [&store] { return store.Bytes(u"site.ico"_s); };
    const QByteArray first = Picture("PNG", Qt::red);
    const QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'/>";
    QVERIFY(!fetch(QByteArray("<html>not found</html>")));
    QVERIFY(kept().isNull());
    QVERIFY(fetch(first));
    for (const DownloadResult& none :
         {DownloadResult(drawing), DownloadResult(first.first(60)), DownloadResult(QByteArray()),
          DownloadResult(tl::make_unexpected(u"gone"_s))})
        QVERIFY(!fetch(none));
    QCOMPARE(kept(), first);
    for (const char* format : {"ICO", "JPG", "BMP"}) {
        const QByteArray next = Picture(format, Qt::green);
        QVERIFY(fetch(next) && kept() == next);
    }

    // Escape ends a download that does not come, and the events of the program are handled meanwhile.
    downloader.Answers.clear();
    QString shown;
    QTimer::singleShot(0, this, [&shown] {
        QWidget* wait = QApplication::activeModalWidget();
        shown = wait->findChild<QLabel*>(u"lblWait"_s)->text();
        QTest::keyClick(wait, Qt::Key_Escape);
    });
    QVERIFY(!FetchFavicon(u"site.test"_s, target, FaviconKind::Address, downloader, nullptr));
    QCOMPARE(shown, u"Downloading Icon Now\n\nPlease Wait..."_s);
}

QTEST_MAIN(tst_Icons)

#include "tst_icons.moc"
