#pragma once

#include "platform/downloader.h"
#include "platform/local_network.h"

#include <QHostAddress>
#include <QList>

#include <functional>
#include <memory>

class QNetworkAccessManager;

namespace paneda {

// Downloads by Qt Network, which is set up at the first download.
//
// The name of each address is looked up first; the connection then goes to an address that was found and has
// been checked, so that a second answer of the name server counts for nothing. Certificates are checked for
// the name. No cookie, no password and no cached file is used.
class WebDownloader : public Downloader {
public:
    // What a test replaces.
    struct Surroundings {
        // Calls `found` from the event loop with the addresses of a host, none if there are none. Returns a
        // number for `Forget`.
        std::function<int(const QString& host, QObject* context,
                          std::function<void(const QList<QHostAddress>&)> found)>
            LookUp;
        std::function<void(int lookUp)> Forget;
        std::function<bool(const QHostAddress&)> IsLocal;
    };

    static Surroundings OfThisMachine();

    explicit WebDownloader(DownloadLimits limits = {}, Surroundings surroundings = OfThisMachine());
    ~WebDownloader() override;

    std::unique_ptr<Download> Start(const QString& address,
                                    std::function<void(DownloadResult)> done) override;

private:
    DownloadLimits limits_;
    Surroundings surroundings_;
    // Shared with the downloads, which may outlive this object.
    std::shared_ptr<QNetworkAccessManager> network_;
};

} // namespace paneda
