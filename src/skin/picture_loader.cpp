#include "skin/picture_loader.h"

#include "core/files/file_io.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QMap>

#include <algorithm>
#include <cstring>
#include <utility>

namespace paneda {

namespace {

// A few bytes of a JPEG can keep its decoder busy for long.
constexpr qint64 kJpegStep = 256;
// A picture that is shown small is decoded at least at this multiple of its shown size.
constexpr int kSpare = 4;

const QString kLate = QStringLiteral("There was not enough time to read it.");

bool IsLoadableSize(const QSize& size, int maxSide) {
    return !size.isEmpty() && size.width() <= maxSide && size.height() <= maxSide;
}

tl::expected<EncodedPicture, QString> ReadEncoded(const DiskPath& path, int wanted) {
    const auto bytes = ReadFileBytes(path, kMaxPictureFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error().Reason);
    return FindPicture(*bytes, wanted);
}

// Decodes one picture.
class Decoder {
public:
    Decoder(const EncodedPicture& picture, DecodingTime& time)
        : device_(picture.Bytes, time, std::strcmp(picture.Format, "jpeg") == 0 ? kJpegStep : kWholeReads) {
        reader_.setDevice(&device_);
        reader_.setAutoDetectImageFormat(false);
        reader_.setFormat(picture.Format);
        reader_.setAutoTransform(false);
    }

    tl::expected<QSize, QString> Size(int maxSide) {
        const QSize size = reader_.size();
        if (size.isEmpty())
            return tl::make_unexpected(QStringLiteral("The picture is damaged."));
        if (!IsLoadableSize(size, maxSide))
            return tl::make_unexpected(
                QStringLiteral("The picture is more than %1 pixels wide or high.").arg(maxSide));
        return size;
    }

    tl::expected<QImage, QString> Decode(const PictureWish& wish) {
        const auto size = Size(wish.MaxSide);
        if (!size)
            return tl::make_unexpected(size.error());
        Prepare(wish, *size);
        QImage image;
        // Some formats repeat their size further inside the file.
        if (!reader_.read(&image) || !IsLoadableSize(image.size(), wish.MaxSide))
            return tl::make_unexpected(QStringLiteral("The picture is damaged."));
        return std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }

    bool WasLate() const { return device_.WasLate(); }

private:
    void Prepare(const PictureWish& wish, const QSize& size) {
        if (!wish.Room.isEmpty() && size.boundedTo(wish.Room) != size)
            reader_.setClipRect(QRect(QPoint(), size.boundedTo(wish.Room)));
        const int enough = kSpare * wish.Width;
        if (wish.Small && enough > 0 && std::max(size.width(), size.height()) >= 2 * enough)
            reader_.setScaledSize(size.scaled(enough, enough, Qt::KeepAspectRatio).expandedTo({1, 1}));
    }

    TimedBytes device_;
    QImageReader reader_;
};

} // namespace

QString PictureError::Text() const {
    return QDir::toNativeSeparators(Path) + QStringLiteral(": ") + Reason;
}

QString LeftOutText(const std::vector<PictureError>& errors) {
    constexpr qsizetype kMostNames = 6;
    QMap<std::pair<QString, QString>, QStringList> names;
    for (const PictureError& error : errors) {
        const QFileInfo file(error.Path);
        names[{QDir::toNativeSeparators(file.path()), error.Reason}].append(file.fileName());
    }
    QStringList lines;
    for (auto group = names.cbegin(); group != names.cend(); ++group) {
        QStringList shown = group->first(std::min(group->size(), kMostNames));
        if (group->size() > kMostNames)
            shown.append(QStringLiteral("%1 more").arg(group->size() - kMostNames));
        lines.append(QStringLiteral("%1 (in %2): %3")
                         .arg(shown.join(QStringLiteral(", ")), group.key().first, group.key().second));
    }
    return lines.join(u'\n');
}

tl::expected<QImage, PictureError> ReadPicture(const DiskPath& path, const PictureWish& wish,
                                               DecodingTime& time) {
    const PictureError late{path.Text(), kLate, true};
    if (time.Left == 0)
        return tl::make_unexpected(late);
    const auto encoded = ReadEncoded(path, wish.Width);
    if (!encoded)
        return tl::make_unexpected(PictureError{path.Text(), encoded.error()});
    Decoder decoder(*encoded, time);
    auto image = decoder.Decode(wish);
    if (decoder.WasLate())
        return tl::make_unexpected(late);
    if (!image)
        return tl::make_unexpected(PictureError{path.Text(), image.error()});
    return std::move(*image);
}

tl::expected<QImage, QString> DecodePicture(const QByteArray& bytes, const PictureWish& wish) {
    const auto encoded = FindPicture(bytes, wish.Width);
    if (!encoded)
        return tl::make_unexpected(encoded.error());
    DecodingTime time;
    Decoder decoder(*encoded, time);
    auto image = decoder.Decode(wish);
    if (decoder.WasLate())
        return tl::make_unexpected(kLate);
    return image;
}

QImage LoadPicture(const DiskPath& path, int wanted) {
    DecodingTime time;
    return ReadPicture(path, {.Width = wanted}, time).value_or(QImage());
}

QImage LoadFittingPicture(const DiskPath& path, int side) {
    const QImage picture = LoadPicture(path, side);
    if (picture.width() <= side && picture.height() <= side)
        return picture;
    return picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

tl::expected<QSize, PictureError> MeasurePicture(const DiskPath& path) {
    DecodingTime time;
    const auto encoded = ReadEncoded(path, 0);
    if (!encoded)
        return tl::make_unexpected(PictureError{path.Text(), encoded.error()});
    const auto size = Decoder(*encoded, time).Size(kMaxPictureSide);
    if (!size)
        return tl::make_unexpected(PictureError{path.Text(), size.error()});
    return *size;
}

QSize ReadPictureSize(const DiskPath& path) {
    return MeasurePicture(path).value_or(QSize());
}

} // namespace paneda
