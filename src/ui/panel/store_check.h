#pragma once

#include "core/store/catalogue_loader.h"

#include <QObject>
#include <QThread>

#include <functional>

namespace paneda {

// What a cached start took to be true without a look at the disk.
struct CachedStart {
    ScanOptions Store;
    CatalogueList Catalogue;
    QString SkinPath; // host folder of the skin that is shown; empty for the built-in look
    quint64 SkinStamp = 0;
};

// What the disk says.
struct StoreFindings {
    bool Differs = false; // in the store or in the skin's files
    CatalogueList Catalogue;
};

// Reads names of the store and names, sizes and times of the skin's files, and compares.
StoreFindings LookAtDisk(const CachedStart& cached);

// Does so once on a worker, so that a slow disk makes nobody wait.
class StoreCheck : public QObject {
    Q_OBJECT

public:
    StoreCheck() = default;
    // Waits for a worker that is at work, though not for one that hangs.
    ~StoreCheck() override;

    // `changed` is called from the event loop if the disk differs, and not after the check is destroyed.
    void Start(CachedStart cached, std::function<void(CatalogueList)> changed);

private:
    QThread* worker_ = nullptr;
};

} // namespace paneda
