#include "skin/quick_png.h"

#include <QtEndian>

#include <zlib.h>

namespace paneda {

namespace {

constexpr char kUnfiltered = 0; // a row's first byte

void AppendNumber(QByteArray& bytes, quint32 number) {
    const quint32 big = qToBigEndian(number);
    bytes.append(reinterpret_cast<const char*>(&big), sizeof big);
}

void AppendChunk(QByteArray& png, const char* type, const QByteArray& data) {
    AppendNumber(png, quint32(data.size()));
    const QByteArray checked = type + data;
    png += checked;
    AppendNumber(
        png, quint32(crc32(0, reinterpret_cast<const Bytef*>(checked.constData()), uInt(checked.size()))));
}

QByteArray Header(const QImage& image) {
    QByteArray header;
    AppendNumber(header, quint32(image.width()));
    AppendNumber(header, quint32(image.height()));
    // Eight bits a channel, RGB with alpha; the only packing and filtering there is; rows from top to bottom.
    return header + QByteArray("\x08\x06\x00\x00\x00", 5);
}

QByteArray Packed(const QByteArray& rows, int packing) {
    uLongf size = compressBound(uLong(rows.size()));
    QByteArray packed(qsizetype(size), Qt::Uninitialized);
    // Cannot fail: the buffer is as large as it may have to be.
    compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
              reinterpret_cast<const Bytef*>(rows.constData()), uLong(rows.size()), packing);
    packed.truncate(qsizetype(size));
    return packed;
}

} // namespace

QByteArray QuickPng(const QImage& picture, int packing) {
    if (picture.isNull())
        return {};
    const QImage image = picture.convertToFormat(QImage::Format_RGBA8888);
    const qsizetype width = 4 * qsizetype(image.width());
    QByteArray rows;
    rows.reserve((width + 1) * image.height());
    for (int y = 0; y < image.height(); ++y) {
        rows += kUnfiltered;
        rows.append(reinterpret_cast<const char*>(image.constScanLine(y)), width);
    }
    QByteArray png("\x89PNG\r\n\x1a\n");
    AppendChunk(png, "IHDR", Header(image));
    AppendChunk(png, "IDAT", Packed(rows, packing));
    AppendChunk(png, "IEND", {});
    return png;
}

} // namespace paneda
