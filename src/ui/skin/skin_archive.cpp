#include "ui/skin/skin_archive.h"

#include "core/files/file_io.h"

#include <QBuffer>
#include <QFileInfo>

namespace paneda {

namespace {

constexpr qint64 kMaxArchive = kMaxInstallBytes; // bytes of the zip file

PackedEntry PackedOf(const ZipListed& entry) {
    return {entry.Name, entry.Header.Entry.UncompressedSize, !entry.IsSpecial() && !entry.IsEncrypted()};
}

} // namespace

tl::expected<SkinInstall, QString> SkinArchive::Open(const QString& path) {
    auto bytes = ReadFileBytes(path, kMaxArchive);
    if (!bytes)
        return tl::make_unexpected(bytes.error().Text());
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(*bytes);
    if (!reader_.Open(std::move(buffer)))
        return tl::make_unexpected(QStringLiteral("It is not a zip file."));
    std::vector<PackedEntry> packed;
    // One more than is accepted shows that there are too many.
    const int total = std::min(reader_.Rewind(), kMostInstallFiles + 1);
    for (int i = 0; i < total; ++i) {
        auto entry = reader_.Next();
        if (!entry)
            return tl::make_unexpected(QStringLiteral("It is damaged."));
        packed.push_back(PackedOf(*entry));
        entries_.push_back(std::move(*entry));
    }
    return PlanSkinInstall(packed, QFileInfo(path).fileName());
}

tl::expected<void, QString> SkinArchive::Install(const QString& appFolder, const SkinInstall& install) {
    return InstallSkin(appFolder, install, [this](std::size_t index) -> tl::expected<QByteArray, QString> {
        auto bytes = reader_.Read(entries_[index]);
        if (!bytes)
            return tl::make_unexpected(bytes.error().Message);
        return std::move(*bytes);
    });
}

} // namespace paneda
