#include "ui/panel/store_check.h"

#include "core/store/store_layout.h"
#include "skin/skin_folder.h"

#include <QFileInfo>

#include <memory>
#include <utility>

namespace paneda {

namespace {

// Milliseconds; enough for any disk that is not asleep.
constexpr unsigned long kWaitAtEnd = 100;

} // namespace

StoreFindings LookAtDisk(const CachedStart& cached) {
    StoreFindings found{false, LoadCatalogue(cached.Store)};
    // A missing folder means that the stick was pulled out. The panel then stays as it is.
    const quint64 stamp = cached.SkinPath.isEmpty() ? 0 : SkinStamp(cached.SkinPath);
    const bool skinDiffers = stamp != 0 && stamp != cached.SkinStamp;
    const bool hasStore = QFileInfo(SettingFolder(cached.Store.AppFolder)).isDir();
    found.Differs = hasStore && (found.Catalogue != cached.Catalogue || skinDiffers);
    return found;
}

StoreCheck::~StoreCheck() {
    // A thread that runs longer deletes itself if the program runs on, and otherwise stays until EndProcess.
    // It uses nothing but what it holds itself.
    if (worker_ && worker_->wait(kWaitAtEnd))
        delete worker_;
}

void StoreCheck::Start(CachedStart cached, std::function<void(CatalogueList)> changed) {
    if (worker_)
        return;
    auto found = std::make_shared<StoreFindings>();
    worker_ = QThread::create([found, cached = std::move(cached)] { *found = LookAtDisk(cached); });
    connect(worker_, &QThread::finished, worker_, &QObject::deleteLater);
    connect(worker_, &QThread::finished, this, [this, found, changed = std::move(changed)] {
        worker_ = nullptr;
        if (found->Differs)
            changed(std::move(found->Catalogue));
    });
    worker_->start(QThread::LowPriority);
}

} // namespace paneda
