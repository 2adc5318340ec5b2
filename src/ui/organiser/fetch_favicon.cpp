#include "ui/organiser/fetch_favicon.h"

#include "core/files/file_io.h"
#include "skin/picture_loader.h"
#include "ui/common/busy_work.h"
#include "ui/panel/frmWait.h"

#include <QEventLoop>
#include <QPointer>

namespace paneda {

namespace {

// `window` may have ended meanwhile.
void Work(const QPointer<QWidget>& window, const std::function<void()>& work) {
    window ? WorkShownBy (*window)(work) : work();
}

} // namespace

bool DownloadFile(const QString& address, const DiskPath& target, Downloader& downloader, QWidget* parent) {
    // Events are handled below, and one of them may end the parent.
    const QPointer<QWidget> window(parent);
    const QPointer<frmWait> wait(
        new frmWait(QStringLiteral("Downloading Icon Now\r\rPlease Wait..."), parent));
    wait->setWindowModality(Qt::ApplicationModal);
    QEventLoop loop;
    QObject::connect(wait, &QDialog::rejected, &loop, &QEventLoop::quit);
    QObject::connect(wait, &QObject::destroyed, &loop, &QEventLoop::quit);
    DownloadResult downloaded = tl::make_unexpected(QString());
    const auto download = downloader.Start(address, [&](DownloadResult result) {
        downloaded = std::move(result);
        loop.quit();
    });
    wait->show();
    loop.exec();
    delete wait;
    bool isKept = false;
    Work(window,
         [&] { isKept = downloaded && DecodePicture(*downloaded) && ReplaceFile(target, *downloaded); });
    return isKept;
}

bool FetchFavicon(const QString& source, const DiskPath& target, FaviconKind kind, Downloader& downloader,
                  QWidget* parent) {
    QString address;
    const QPointer<QWidget> window(parent);
    Work(window, [&] { address = FaviconAddress(source, kind); });
    return !address.isEmpty() && DownloadFile(address, target, downloader, window);
}

} // namespace paneda
