// Input: an archive. What a reader gives of it fits its checksum and the limit; with what came out an archive
// is written, which has to give the same again.

#include "archive/raw_deflate.h"
#include "archive/zip_class.h"
#include "archive/zip_extraction.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace paneda;

namespace {

std::vector<QByteArray> Contents(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        std::abort();
    file.close();
    std::vector<QByteArray> contents;
    qint64 total = 0;
    ZipExtractionClass zip({}, [&](const QString& name, const QByteArray& entry) {
        total += entry.size();
        if (name.isEmpty() || name.contains(u'/') || name.contains(u'\\') || entry.isEmpty())
            std::abort();
        contents.push_back(entry);
    });
    if (zip.OpenZip(path))
        zip.Extract({}, false, false);
    // No byte of the file is inflated twice.
    if (!IsPlausibleDeflateSize(bytes.size(), total))
        std::abort();
    return contents;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.zip"));
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto contents = Contents(path, input);
    ZipClass zip;
    for (const QByteArray& entry : contents) {
        if (!zip.AddBytes(QString::number(zip.FileCount()), entry, {}))
            std::abort();
    }
    if (Contents(path, zip.Bytes().value()) != contents)
        std::abort();
    return 0;
}
