#pragma once

#include "core/store/catalogue_loader.h"

#include <QObject>
#include <QPointer>
#include <QThread>

#include <functional>

namespace paneda {

// What a cached start has shown without reading the store or the skin.
struct CachedStart {
    ScanOptions Store;
    CatalogueList Catalogue;
    QString SkinPath;      // host folder of the skin that is shown; empty for the built-in look
    quint64 SkinStamp = 0; // of the skin's files; see SkinStamp in skin/skin_folder.h
};

// What LookAtDisk found.
struct StoreFindings {
    bool Differs = false; // store or skin are not as the cached start has shown them
    CatalogueList Catalogue;
};

// Reads the names of the store, and the names, sizes and times of the skin's files, and compares them with
// the cached ones.
StoreFindings LookAtDisk(const CachedStart& cached);

// Calls LookAtDisk once on a worker thread, so that the panel does not wait for a slow disk.
class StoreCheck : public QObject {
    Q_OBJECT

public:
    StoreCheck() = default;
    // Waits a tenth of a second at most for a worker that still runs.
    ~StoreCheck() override;

    // If something differs, `changed` is called from the event loop with the catalogue that was read. It is
    // not called after this object is destroyed. While a check runs, another Start does nothing.
    void Start(CachedStart cached, std::function<void(CatalogueList)> changed);

private:
    QPointer<QThread> worker_;
};

} // namespace paneda
