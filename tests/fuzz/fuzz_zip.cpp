// Input: an archive. What a reader gives of it fits its checksum and the limit; with what came out an archive
// is written, which has to give the same again.

#include "archive/raw_deflate.h"
#include "archive/zip_class.h"
#include "archive/zip_extraction.h"

#include <QBuffer>

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

// The same of all entries, stored ones too, as they are read for a skin.
void ReadEach(const QByteArray& bytes) {
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    ZipReader reader;
    if (!reader.Open(std::move(buffer)))
        return;
    qint64 total = 0;
    for (int left = reader.Rewind(); left > 0; --left) {
        const auto entry = reader.Next();
        if (!entry)
            break;
        const auto read = reader.Read(*entry);
        total += read ? read->size() : 0;
    }
    if (total > kMaxZipEntry || !IsPlausibleDeflateSize(bytes.size(), total))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    ReadEach(bytes);
    const auto contents = Contents(bytes);
    ZipClass zip;
    for (const QByteArray& entry : contents) {
        if (!zip.AddBytes(QString::number(zip.FileCount()), entry, {}))
            std::abort();
    }
    if (Contents(zip.Bytes().value()) != contents)
        std::abort();
    return 0;
}
