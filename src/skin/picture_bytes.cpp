#include "skin/picture_bytes.h"

#include <QByteArrayView>
#include <QtEndian>

#include <algorithm>
#include <optional>

namespace paneda {

namespace {

constexpr QByteArrayView kPngMark("\x89PNG\r\n\x1a\n");
constexpr QByteArrayView kJpegMark("\xFF\xD8\xFF");
constexpr QByteArrayView kIconMark("\0\0\1\0", 4);
constexpr qsizetype kChunkFrame = 12; // bytes of a PNG chunk around its contents
constexpr qsizetype kIconHead = 6;
constexpr qsizetype kIconEntry = 16;
constexpr int kMaxIcons = 64; // in one file

template <class Number>
Number BigEndian(const QByteArray& bytes, qsizetype at) {
    return qFromBigEndian<Number>(bytes.constData() + at);
}

template <class Number>
Number LittleEndian(const QByteArray& bytes, qsizetype at) {
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

// What the pixels need: chunks whose type begins with a capital letter, and the transparency of a palette.
QByteArray PixelsOfPng(const QByteArray& png) {
    QByteArray kept = png.first(kPngMark.size());
    for (qsizetype at = kPngMark.size(); at + kChunkFrame <= png.size();) {
        const qsizetype size = kChunkFrame + qsizetype(BigEndian<quint32>(png, at));
        if (size > png.size() - at)
            break;
        const QByteArrayView type = QByteArrayView(png).sliced(at + 4, 4);
        if ((type[0] & 0x20) == 0 || type == "tRNS")
            kept += QByteArrayView(png).sliced(at, size);
        at += size;
    }
    return kept;
}

struct IconPicture {
    QByteArray Entry;
    QByteArray Bytes;
    qint64 Width = 0;
    qint64 Height = 0; // pixels
    bool IsPng = false;
};

// The size is that of the picture itself; what the entry says of it may differ.
std::optional<IconPicture> IconAt(const QByteArray& file, int index) {
    constexpr qsizetype kPngSize = 16; // where a PNG has its width
    constexpr qsizetype kLeast = 24;
    const qsizetype at = kIconHead + index * kIconEntry;
    if (at + kIconEntry > file.size())
        return std::nullopt;
    const qsizetype size = LittleEndian<quint32>(file, at + 8);
    const qsizetype offset = LittleEndian<quint32>(file, at + 12);
    if (size < kLeast || offset > file.size() || size > file.size() - offset)
        return std::nullopt;
    IconPicture icon{file.sliced(at, kIconEntry), file.sliced(offset, size)};
    icon.IsPng = icon.Bytes.startsWith(kPngMark);
    if (icon.IsPng) {
        icon.Width = BigEndian<quint32>(icon.Bytes, kPngSize);
        icon.Height = BigEndian<quint32>(icon.Bytes, kPngSize + 4);
    } else {
        icon.Width = LittleEndian<qint32>(icon.Bytes, 4);
        icon.Height = LittleEndian<qint32>(icon.Bytes, 8) / 2; // the mask is the lower half
    }
    const auto loadable = [](qint64 side) { return side > 0 && side <= kMaxPictureSide; };
    return loadable(icon.Width) && loadable(icon.Height) ? std::optional(icon) : std::nullopt;
}

tl::expected<EncodedPicture, QString> ChooseIcon(const QByteArray& file, int wanted) {
    std::optional<IconPicture> best;
    const int count = std::min<int>(LittleEndian<quint16>(file, 4), kMaxIcons);
    for (int i = 0; i < count; ++i) {
        const auto icon = IconAt(file, i);
        const bool enough = icon && icon->Width >= wanted;
        if (icon && (!best || (best->Width >= wanted ? enough && icon->Width < best->Width
                                                     : icon->Width > best->Width)))
            best = icon;
    }
    if (!best)
        return tl::make_unexpected(QStringLiteral("The icon file holds no picture that can be read."));
    if (best->IsPng)
        return EncodedPicture{"png", PixelsOfPng(best->Bytes)};
    QByteArray head = file.first(kIconHead) + best->Entry;
    qToLittleEndian(quint16(1), head.data() + 4);
    qToLittleEndian(quint32(kIconHead + kIconEntry), head.data() + kIconHead + 12);
    return EncodedPicture{"ico", head + best->Bytes};
}

tl::expected<EncodedPicture, QString> CheckedJpeg(const QByteArray& file) {
    const int scans = CountScans(file);
    if (scans > kMaxScans)
        return tl::make_unexpected(
            QStringLiteral("The picture has %1 scans; at most %2 are read.").arg(scans).arg(kMaxScans));
    return EncodedPicture{"jpeg", file};
}

} // namespace

tl::expected<EncodedPicture, QString> FindPicture(const QByteArray& file, int wanted) {
    if (file.startsWith(kPngMark))
        return EncodedPicture{"png", PixelsOfPng(file)};
    if (file.startsWith(kJpegMark))
        return CheckedJpeg(file);
    if (file.startsWith(kIconMark) && file.size() > kIconHead)
        return ChooseIcon(file, wanted);
    if (file.startsWith("BM"))
        return EncodedPicture{"bmp", file};
    if (file.startsWith("GIF8"))
        return EncodedPicture{"gif", file};
    return tl::make_unexpected(QStringLiteral("The file is no picture in PNG, JPG, BMP, GIF or ICO format."));
}

// Between two segments decoders pass over everything up to the next marker, and the data of a scan has none.
int CountScans(const QByteArray& jpeg) {
    const auto hasNoLength = [](uchar marker) {
        return marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD9) || marker == 0xFF;
    };
    constexpr uchar kScan = 0xDA;
    int scans = 0;
    for (qsizetype at = jpeg.indexOf('\xFF'); at >= 0 && at + 3 < jpeg.size();
         at = jpeg.indexOf('\xFF', at)) {
        const auto marker = uchar(jpeg[++at]);
        if (hasNoLength(marker))
            continue;
        scans += marker == kScan ? 1 : 0;
        at += 1 + BigEndian<quint16>(jpeg, at + 1);
    }
    return scans;
}

} // namespace paneda
