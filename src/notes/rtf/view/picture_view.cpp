#include "notes/rtf/view/view.h"

#include "notes/rtf/properties.h"

#include <QPainter>
#include <QTextDocument>
#include <QUrl>
#include <QtEndian>

#include <algorithm>

namespace paneda {

namespace {

constexpr qsizetype kFileHeader = 14;
constexpr quint32 kInfoHeader = 40;
// BI_BITFIELDS: three masks follow a header of 40 bytes.
constexpr quint32 kBitFields = 3;
constexpr int kMaxPlaceholderSide = 2000;

quint32 Read32(const QByteArray& bytes, qsizetype at) {
    return bytes.size() < at + 4 ? 0 : qFromLittleEndian<quint32>(bytes.constData() + at);
}

quint16 Read16(const QByteArray& bytes, qsizetype at) {
    return bytes.size() < at + 2 ? quint16(0) : qFromLittleEndian<quint16>(bytes.constData() + at);
}

// A bitmap file of a device independent bitmap, which is one without its file header.
QByteArray BitmapFile(const QByteArray& dib) {
    const quint32 headerSize = Read32(dib, 0);
    if (headerSize < 12 || headerSize > 200)
        return {};
    const bool isCore = headerSize == 12;
    const int depth = Read16(dib, isCore ? 10 : 14);
    quint32 colours = isCore ? 0 : Read32(dib, 32);
    if (colours == 0 && depth <= 8)
        colours = 1U << depth;
    const quint32 masks = headerSize == kInfoHeader && Read32(dib, 16) == kBitFields ? 12 : 0;
    const quint32 offset =
        quint32(kFileHeader) + headerSize + masks + std::min(colours, 256U) * (isCore ? 3 : 4);
    QByteArray file(kFileHeader, '\0');
    file[0] = 'B';
    file[1] = 'M';
    qToLittleEndian(quint32(kFileHeader + dib.size()), file.data() + 2);
    qToLittleEndian(offset, file.data() + 10);
    return file + dib;
}

QImage Placeholder(QSize size) {
    const QSize held = size.expandedTo({8, 8}).boundedTo({kMaxPlaceholderSide, kMaxPlaceholderSide});
    QImage picture(held, QImage::Format_ARGB32_Premultiplied);
    picture.fill(QColor(0xF4, 0xF4, 0xF4));
    QPainter painter(&picture);
    painter.setPen(QColor(0xA0, 0xA0, 0xA0));
    painter.drawRect(0, 0, held.width() - 1, held.height() - 1);
    painter.drawLine(0, 0, held.width() - 1, held.height() - 1);
    painter.drawLine(0, held.height() - 1, held.width() - 1, 0);
    return picture;
}

QTextFormat FindFormat(const QTextDocument& document, const QString& name) {
    const QList<QTextFormat> formats = document.allFormats();
    for (const QTextFormat& format : formats) {
        if (format.hasProperty(RtfPictureBytes) && format.stringProperty(QTextFormat::ImageName) == name)
            return format;
    }
    return {};
}

} // namespace

QImage RtfPicture(const QByteArray& bytes, const QByteArray& kind) {
    QImage picture;
    if (kind == "pngblip")
        picture = QImage::fromData(bytes, "PNG");
    else if (kind == "jpegblip")
        picture = QImage::fromData(bytes, "JPG");
    else if (kind.startsWith("dibitmap"))
        picture = QImage::fromData(BitmapFile(bytes), "BMP");
    else if (kind.startsWith("wmetafile") || kind == "emfblip")
        picture = QImage::fromData(BitmapFile(BitmapOfMetafile(bytes, kind)), "BMP");
    return picture;
}

void ShowRtfPictures(QTextDocument& document) {
    document.setResourceProvider([&document](const QUrl& url) -> QVariant {
        const QTextFormat format = FindFormat(document, url.toString());
        if (!format.isValid())
            return {};
        QImage picture = RtfPicture(format.property(RtfPictureBytes).toByteArray(),
                                    format.property(RtfPictureKind).toByteArray());
        // An object has a label to show instead.
        if (const QTextImageFormat image = format.toImageFormat(); picture.isNull() && format.isImageFormat())
            picture = Placeholder(QSizeF(image.width(), image.height()).toSize());
        document.addResource(QTextDocument::ImageResource, url, picture);
        return picture;
    });
}

} // namespace paneda
