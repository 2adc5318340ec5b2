// Input: a cache file. It is decoded as it stands, and once more with a header and a checksum that fit what
// follows the place where they stand, so that the fuzzer gets behind them. What is taken is laid out.

#include "core/store/catalogue_cache.h"
#include "core/text/checksum.h"
#include "skin/frame_geometry.h"

#include <QtEndian>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace paneda;

namespace {

const QString kVersion = QStringLiteral("2.0");
const QString kApp = QStringLiteral("E:\\App");

// Header of an empty cache less its checksum.
QByteArray Header() {
    CacheRecord record;
    record.ProductVersion = kVersion;
    return EncodeCache(record).first(8 + 4 + 6);
}

void LayOut(const CacheRecord& record) {
    constexpr int kScreen = 20'000;
    const PieceSizes& sizes = record.Pictures.Sizes;
    const PanelGeometry geometry =
        LayoutPanel(record.Catalogue, {5, PanelMetricsOf(sizes), {kScreen, kScreen, kScreen}, 0, 0});
    if (!range::kSide.Holds(geometry.PanelWidth) || geometry.PanelHeight > kScreen)
        std::abort();
    OpenCategory(geometry, 0);
    DisplayBorder(sizes, {geometry.PanelWidth, geometry.PanelHeight});
}

void Check(const QByteArray& bytes) {
    const auto record = DecodeCache(bytes, kVersion, kApp);
    if (!record)
        return;
    LayOut(*record);
    // A file name with a backslash loses what stands before it, once.
    const auto second = DecodeCache(EncodeCache(*record), kVersion, kApp);
    if (!second)
        std::abort();
    const auto third = DecodeCache(EncodeCache(*second), kVersion, kApp);
    if (!third || !(*third == *second))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QByteArray header = Header();
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    Check(input);
    const QByteArray contents = input.mid(header.size() + 8);
    QByteArray checksum(8, '\0');
    qToLittleEndian(Fnv1a64OfWords(contents), checksum.data());
    Check(header + checksum + contents);
    return 0;
}
