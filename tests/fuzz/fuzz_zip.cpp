// Input: an archive. What a reader gives of it fits its checksum and the limit; with what came out an archive
// is written, which has to give the same again.

#include "archive/raw_deflate.h"
#include "archive/zip_class.h"
#include "archive/zip_extraction.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace paneda;

namespace {

std::vector<QByteArray> Contents(const QByteArray& bytes) {
    std::vector<QByteArray> contents;
    qint64 total = 0;
    ZipExtractionClass zip({}, [&](const QString& name, const QByteArray& entry) {
        total += entry.size();
        if (name.isEmpty() || name.contains(u'/') || name.contains(u'\\') || entry.isEmpty())
            std::abort();
        contents.push_back(entry);
    });
    if (zip.OpenZip(bytes, QStringLiteral("x.zip")))
        zip.Extract({}, false, false);
    // No byte of the file is inflated twice, and all of it together is bounded.
    if (total > kMaxZipEntry || !IsPlausibleDeflateSize(bytes.size(), total))
        std::abort();
    return contents;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto contents = Contents(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    ZipClass zip;
    for (const QByteArray& entry : contents) {
        if (!zip.AddBytes(QString::number(zip.FileCount()), entry, {}))
            std::abort();
    }
    if (Contents(zip.Bytes().value()) != contents)
        std::abort();
    return 0;
}
