#include "archive/raw_deflate.h"

#include <zlib.h>

#include <limits>

namespace paneda {

namespace {

constexpr qsizetype kHeaderSize = 2;
constexpr qsizetype kTrailerSize = 4;
// The most that one byte of deflate data can stand for.
constexpr qint64 kMaxDeflateRatio = 1032;

const Bytef* Input(QByteArrayView bytes) {
    return reinterpret_cast<const Bytef*>(bytes.data());
}

Bytef* Output(QByteArray& bytes) {
    return reinterpret_cast<Bytef*>(bytes.data());
}

} // namespace

quint32 ZipCrc32(QByteArrayView bytes) {
    return quint32(crc32_z(0, Input(bytes), z_size_t(bytes.size())));
}

std::optional<QByteArray> DeflateRaw(QByteArrayView bytes) {
    if (quint64(bytes.size()) > std::numeric_limits<uLong>::max() / 2)
        return std::nullopt;
    uLongf size = compressBound(uLong(bytes.size()));
    QByteArray stream(qsizetype(size), Qt::Uninitialized);
    if (compress(Output(stream), &size, Input(bytes), uLong(bytes.size())) != Z_OK)
        return std::nullopt;
    return stream.sliced(kHeaderSize, qsizetype(size) - kHeaderSize - kTrailerSize);
}

bool IsPlausibleDeflateSize(qint64 compressedSize, qint64 uncompressedSize) {
    return uncompressedSize / kMaxDeflateRatio <= compressedSize;
}

QByteArray InflateRaw(QByteArrayView deflated, qint64 expectedSize) {
    QByteArray stream;
    stream.reserve(deflated.size() + kHeaderSize);
    stream.append("\x78\x9C", kHeaderSize);
    stream.append(deflated);
    QByteArray output(qsizetype(expectedSize + expectedSize / 100 + 12), Qt::Uninitialized);
    uLongf size = uLongf(output.size());
    // Ignored: a stream without its trailer is never reported as whole.
    (void)uncompress(Output(output), &size, Input(stream), uLong(stream.size()));
    output.resize(qsizetype(size));
    return output;
}

} // namespace paneda
