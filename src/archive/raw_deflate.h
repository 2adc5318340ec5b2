#pragma once

#include <QByteArray>

#include <optional>

namespace paneda {

// The CRC-32 of zip entries.
quint32 ZipCrc32(QByteArrayView bytes);

// Compresses to a deflate stream without the header and the trailer that zlib puts around it. Nothing if
// there is not enough memory.
std::optional<QByteArray> DeflateRaw(QByteArrayView bytes);

// Whether this many bytes of deflate data can hold so many uncompressed bytes at all. Checked before memory
// is allocated for a size that a file claims.
bool IsPlausibleDeflateSize(qint64 compressedSize, qint64 uncompressedSize);

// Inflates a stream without header and trailer. The result is at most a little longer than `expectedSize`
// (the size in the archive's directory). A damaged stream gives what could be inflated of it; only the CRC
// shows whether that is all.
QByteArray InflateRaw(QByteArrayView deflated, qint64 expectedSize);

} // namespace paneda
