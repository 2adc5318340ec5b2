#pragma once

#include <QByteArray>
#include <QString>

#include <tl/expected.hpp>

#include <functional>
#include <memory>

namespace paneda {

// What one download may cost.
struct DownloadLimits {
    int Redirections = 5;
    int Milliseconds = 10'000; // in all, from looking up the name to the last byte
    qint64 Bytes = 1024 * 1024;
};

// The contents, or for the user why there are none.
using DownloadResult = tl::expected<QByteArray, QString>;

// One download under way; destroying it ends it, and nothing is called any more.
class Download {
public:
    virtual ~Download() = default;
};

// Small files from the web.
class Downloader {
public:
    virtual ~Downloader() = default;

    // Fetches an http or https address and follows redirections to such ones. `done` is called once, from the
    // event loop of the calling thread and not before this returns. The address itself may lie in the local
    // network; no redirection leads there from an address outside it. `done` may destroy the download.
    virtual std::unique_ptr<Download> Start(const QString& address,
                                            std::function<void(DownloadResult)> done) = 0;
};

} // namespace paneda
