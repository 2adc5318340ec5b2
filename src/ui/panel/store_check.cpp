#include "ui/panel/store_check.h"

#include "core/store/store_layout.h"
#include "skin/skin_folder.h"

#include <QFileInfo>

#include <memory>
#include <utility>

namespace paneda {

namespace {

constexpr unsigned long kWaitAtEnd = 2'000; // milliseconds

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
    // A thread that still runs is not deleted: deleting a running QThread would abort the program.
    if (worker_ && worker_->wait(kWaitAtEnd))
        delete worker_;
}

void StoreCheck::Start(CachedStart cached, std::function<void(CatalogueList)> changed) {
    if (worker_)
        return;
    auto found = std::make_shared<StoreFindings>();
    worker_ = QThread::create([found, cached = std::move(cached)] { *found = LookAtDisk(cached); });
    connect(worker_, &QThread::finished, this, [this, found, changed = std::move(changed)] {
        worker_->deleteLater();
        worker_ = nullptr;
        if (found->Differs)
            changed(std::move(found->Catalogue));
    });
    worker_->start(QThread::LowPriority);
}

} // namespace paneda
