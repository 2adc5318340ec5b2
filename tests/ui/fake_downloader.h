#pragma once

#include "platform/downloader.h"

#include <QObject>
#include <QStringList>

#include <map>
#include <utility>

namespace paneda::test {

// Answers from the event loop, but never after the download is destroyed. An address without an answer is
// under way for ever.
class FakeDownloader : public Downloader {
public:
    QStringList Asked;
    std::map<QString, DownloadResult> Answers;

    std::unique_ptr<Download> Start(const QString& address,
                                    std::function<void(DownloadResult)> done) override {
        struct UnderWay : Download {
            QObject Context;
        };
        Asked.append(address);
        auto download = std::make_unique<UnderWay>();
        const auto answer = Answers.find(address);
        if (answer != Answers.end())
            QMetaObject::invokeMethod(
                &download->Context, [done = std::move(done), result = answer->second] { done(result); },
                Qt::QueuedConnection);
        return download;
    }
};

} // namespace paneda::test
