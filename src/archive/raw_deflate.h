#pragma once

#include <QByteArray>

#include <optional>

namespace paneda {

// The CRC-32 of zip entries.
quint32 ZipCrc32(QByteArrayView bytes);

// Compresses to a deflate stream without the header and the trailer that zlib puts around it. Nothing when
// there is no memory for it.
std::optional<QByteArray> DeflateRaw(QByteArrayView bytes);

// Whether so many bytes of deflate data can hold so many uncompressed ones at all. Asked before memory is
// taken for a size that a file claims.
bool IsPlausibleDeflateSize(qint64 compressedSize, qint64 uncompressedSize);

// Inflates a stream without header and trailer. What comes out is at most a little longer than `expectedSize`
// (the size in the archive's directory), and is what could be inflated, be the stream whole or not: only its
// CRC tells.
QByteArray InflateRaw(QByteArrayView deflated, qint64 expectedSize);

} // namespace paneda
