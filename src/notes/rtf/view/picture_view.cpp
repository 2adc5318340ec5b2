#include "notes/rtf/view/view.h"

#include "notes/rtf/properties.h"

#include <QAbstractTextDocumentLayout>
#include <QCache>
#include <QElapsedTimer>
#include <QPainter>
#include <QTextDocument>
#include <QTimer>
#include <QUrl>
#include <QtEndian>

#include <algorithm>
#include <memory>

namespace paneda {

namespace {

constexpr qsizetype kFileHeader = 14;
constexpr quint32 kInfoHeader = 40;
// BI_BITFIELDS: three masks follow a header of 40 bytes.
constexpr quint32 kBitFields = 3;
constexpr int kMaxPlaceholderSide = 2000;
// Pictures of one note that are held decoded; others are decoded again when they are drawn again.
constexpr qsizetype kMaxHeldKilobytes = 64 * 1024;
// A larger picture is held in twice the size that it is shown in, for sharp screens.
constexpr qint64 kSmallPicture = 800'000; // pixels
// Milliseconds of decoding at a stretch. What comes then is drawn later, so that a page full of huge pictures
// does not keep the window busy.
constexpr qint64 kStretch = 500;
// Each scan of a JPEG costs a pass over the whole picture, however few bytes it has. Usual files have up to a
// dozen.
constexpr qsizetype kMaxScans = 100;

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

QImage Reduced(const QImage& picture, QSizeF shown) {
    const QSize wanted = (shown * 2).toSize();
    const bool isSmall = qint64(picture.width()) * picture.height() <= kSmallPicture;
    if (isSmall || wanted.isEmpty() || wanted.width() >= picture.width() ||
        wanted.height() >= picture.height())
        return picture;
    return picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// In these bytes no marker of a scan is anything else, but for a rare thumbnail.
bool HasTooManyScans(const QByteArray& jpeg) {
    return jpeg.count("\xFF\xDA") > kMaxScans;
}

// Decodes the pictures of a document when they are drawn.
class Pictures {
public:
    explicit Pictures(QTextDocument& document) : document_(document), held_(kMaxHeldKilobytes) {
        sinceLast_.start();
    }

    QVariant Find(const QString& name) {
        if (const QImage* held = held_.object(name))
            return *held;
        const QTextFormat format = FindFormat(document_, name);
        if (!format.isValid())
            return {};
        left_ = std::min(kStretch, left_ + sinceLast_.restart());
        if (left_ <= 0) {
            // An own call, since this one is part of drawing.
            QTimer::singleShot(kStretch, &document_,
                               [document = &document_] { Q_EMIT document->documentLayout()->update(); });
            return Shown(format, QImage());
        }
        const QImage picture = Shown(format, RtfPicture(format.property(RtfPictureBytes).toByteArray(),
                                                        format.property(RtfPictureKind).toByteArray()));
        left_ -= sinceLast_.restart();
        held_.insert(name, new QImage(picture), qsizetype(picture.sizeInBytes() / 1024 + 1));
        return picture;
    }

private:
    static QImage Shown(const QTextFormat& format, const QImage& picture) {
        const QTextImageFormat image = format.toImageFormat();
        const QSizeF size(image.width(), image.height());
        // An object has a label to show instead.
        if (picture.isNull())
            return format.isImageFormat() ? Placeholder(size.toSize()) : picture;
        return Reduced(picture, format.isImageFormat() ? size : format.property(RtfObjectSize).toSizeF());
    }

    QTextDocument& document_;
    QCache<QString, QImage> held_;
    QElapsedTimer sinceLast_;
    qint64 left_ = kStretch;
};

} // namespace

QImage RtfPicture(const QByteArray& bytes, const QByteArray& kind) {
    QImage picture;
    if (kind == "pngblip")
        picture = QImage::fromData(bytes, "PNG");
    else if (kind == "jpegblip" && !HasTooManyScans(bytes))
        picture = QImage::fromData(bytes, "JPG");
    else if (kind.startsWith("dibitmap"))
        picture = QImage::fromData(BitmapFile(bytes), "BMP");
    else if (kind.startsWith("wmetafile") || kind == "emfblip")
        picture = QImage::fromData(BitmapFile(BitmapOfMetafile(bytes, kind)), "BMP");
    return picture;
}

void ShowRtfPictures(QTextDocument& document) {
    const auto pictures = std::make_shared<Pictures>(document);
    document.setResourceProvider([pictures](const QUrl& url) { return pictures->Find(url.toString()); });
}

} // namespace paneda
