#include "platform/web_downloader.h"

#include <QHostInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslSocket>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

// Addresses of one host that are tried before the download fails.
constexpr qsizetype kMostAddresses = 4;

bool IsWebAddress(const QUrl& url) {
    return url.isValid() && !url.host().isEmpty() && (url.scheme() == u"http" || url.scheme() == u"https");
}

// What the Host field of a request has to hold.
QByteArray HostField(const QUrl& url) {
    return url.authority(QUrl::FullyEncoded | QUrl::RemoveUserInfo).toLatin1();
}

QNetworkRequest RequestTo(const QUrl& url, const QHostAddress& address) {
    QUrl pinned = url.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    pinned.setHost(address.toString());
    QNetworkRequest request(pinned);
    request.setRawHeader("Host", HostField(url));
    // Without this a few bytes could be unpacked to very many.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", "Mozilla/5.0");
    request.setPeerVerifyName(url.host(QUrl::FullyEncoded));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    return request;
}

bool CouldNotConnect(QNetworkReply::NetworkError error) {
    return error == QNetworkReply::ConnectionRefusedError || error == QNetworkReply::TimeoutError ||
           error == QNetworkReply::HostNotFoundError || error == QNetworkReply::UnknownNetworkError;
}

class WebDownload : public QObject, public Download {
public:
    WebDownload(std::shared_ptr<QNetworkAccessManager> network, const DownloadLimits& limits,
                const WebDownloader::Surroundings& surroundings, std::function<void(DownloadResult)> done)
        : network_(std::move(network)), limits_(limits), surroundings_(surroundings), done_(std::move(done)) {
        time_.setSingleShot(true);
        connect(&time_, &QTimer::timeout, this,
                [this] { Fail(QStringLiteral("The server took too long to answer.")); });
        time_.start(limits.Milliseconds);
    }

    ~WebDownload() override { Drop(); }

    void Fetch(const QUrl& url) {
        Drop();
        url_ = url;
        if (!IsWebAddress(url))
            return Fail(QStringLiteral("Only http and https addresses are fetched."));
        if (url.scheme() == u"https" && !QSslSocket::supportsSsl())
            return Fail(QStringLiteral("This system has no library for secure connections."));
        lookUp_ = surroundings_.LookUp(url.host(QUrl::FullyEncoded), this,
                                       [this](const QList<QHostAddress>& found) { Choose(found); });
    }

private:
    void Choose(const QList<QHostAddress>& found) {
        lookUp_ = 0;
        addresses_.clear();
        for (const QHostAddress& address : found) {
            // A host that is outside under one name may be inside under the next.
            if (!hasBeenOutside_ || !surroundings_.IsLocal(address))
                addresses_.append(address);
        }
        addresses_ = addresses_.first(std::min(addresses_.size(), kMostAddresses));
        if (found.isEmpty())
            Fail(QStringLiteral("The server was not found."));
        else if (addresses_.isEmpty())
            Fail(QStringLiteral("The server sends the request on into the local network."));
        else
            ConnectToNext();
    }

    void ConnectToNext() {
        Drop();
        const QHostAddress address = addresses_.takeFirst();
        isOutside_ = !surroundings_.IsLocal(address);
        reply_ = network_->get(RequestTo(url_, address));
        reply_->setReadBufferSize(limits_.Bytes + 1);
        connect(reply_, &QNetworkReply::readyRead, this, [this] { TakeBytes(); });
        connect(reply_, &QNetworkReply::finished, this, [this] { Finish(); });
    }

    void TakeBytes() {
        bytes_ += reply_->read(limits_.Bytes + 1 - bytes_.size());
        if (bytes_.size() > limits_.Bytes)
            Fail(QStringLiteral("The file is larger than %1 bytes.").arg(limits_.Bytes));
    }

    void Finish() {
        constexpr int kRedirected = 300;
        constexpr int kSuccess = 200;
        constexpr int kFailed = 400;
        const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        const QByteArray next = reply_->rawHeader("Location");
        if (status >= kRedirected && status < kFailed && !next.isEmpty())
            return Follow(url_.resolved(QUrl::fromEncoded(next.trimmed())));
        if (reply_->error() != QNetworkReply::NoError) {
            if (CouldNotConnect(reply_->error()) && !addresses_.isEmpty())
                return ConnectToNext();
            return Fail(reply_->errorString());
        }
        if (status != kSuccess)
            return Fail(QStringLiteral("The server answered with %1.").arg(status));
        TakeBytes();
        if (done_)
            Tell(std::move(bytes_));
    }

    void Follow(const QUrl& url) {
        if (++redirections_ > limits_.Redirections)
            return Fail(QStringLiteral("The server sends the request on too often."));
        hasBeenOutside_ = hasBeenOutside_ || isOutside_;
        Fetch(url);
    }

    void Fail(const QString& reason) {
        if (done_)
            Tell(tl::make_unexpected(reason));
    }

    // From the event loop, since the caller may destroy this object and has to have it first.
    void Tell(DownloadResult result) {
        Drop();
        time_.stop();
        QMetaObject::invokeMethod(
            this,
            [done = std::exchange(done_, nullptr), result = std::move(result)]() mutable {
                done(std::move(result));
            },
            Qt::QueuedConnection);
    }

    void Drop() {
        if (lookUp_ != 0)
            surroundings_.Forget(std::exchange(lookUp_, 0));
        bytes_.clear();
        if (!reply_)
            return;
        QNetworkReply* reply = std::exchange(reply_, nullptr);
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }

    std::shared_ptr<QNetworkAccessManager> network_;
    DownloadLimits limits_;
    WebDownloader::Surroundings surroundings_;
    std::function<void(DownloadResult)> done_; // empty when it has been told
    QTimer time_;
    QUrl url_;
    int lookUp_ = 0;                // under way, else 0
    QList<QHostAddress> addresses_; // of the host, not tried yet
    QNetworkReply* reply_ = nullptr;
    QByteArray bytes_;
    int redirections_ = 0;
    bool isOutside_ = false;      // the address that is connected to
    bool hasBeenOutside_ = false; // one of those before it
};

} // namespace

WebDownloader::Surroundings WebDownloader::OfThisMachine() {
    return {[](const QString& host, QObject* context, std::function<void(const QList<QHostAddress>&)> found) {
                return QHostInfo::lookupHost(
                    host, context,
                    [found = std::move(found)](const QHostInfo& info) { found(info.addresses()); });
            },
            [](int lookUp) { QHostInfo::abortHostLookup(lookUp); },
            [](const QHostAddress& address) { return IsLocalAddress(address, OwnSubnets()); }};
}

WebDownloader::WebDownloader(DownloadLimits limits, Surroundings surroundings)
    : limits_(limits), surroundings_(std::move(surroundings)) {}

WebDownloader::~WebDownloader() = default;

std::unique_ptr<Download> WebDownloader::Start(const QString& address,
                                               std::function<void(DownloadResult)> done) {
    if (!network_)
        network_ = std::make_shared<QNetworkAccessManager>();
    auto download = std::make_unique<WebDownload>(network_, limits_, surroundings_, std::move(done));
    download->Fetch(QUrl(address.trimmed()));
    return download;
}

} // namespace paneda
