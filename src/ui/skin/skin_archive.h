#pragma once

#include "archive/zip_reader.h"
#include "skin/skin_install.h"

#include <vector>

namespace paneda {

// A zip file with a skin in it, in memory.
class SkinArchive {
public:
    // Reads the file, a host path, and decides what it would install. Fails with a reason for the user.
    tl::expected<SkinInstall, QString> Open(const QString& path);

    tl::expected<void, QString> Install(const QString& appFolder, const SkinInstall& install);

private:
    ZipReader reader_;
    std::vector<ZipListed> entries_;
};

} // namespace paneda
