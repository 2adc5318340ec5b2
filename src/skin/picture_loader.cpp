#include "skin/picture_loader.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <array>

namespace paneda {

namespace {

bool IsKnownFormat(const QByteArray& format) {
    static constexpr std::array<const char*, 5> kFormats{"png", "jpeg", "bmp", "gif", "ico"};
    return std::any_of(kFormats.begin(), kFormats.end(),
                       [&format](const char* known) { return format == known; }) ||
           format == "jpg";
}

bool IsLoadableSize(const QSize& size) {
    return !size.isEmpty() && size.width() <= kMaxPictureSide && size.height() <= kMaxPictureSide;
}

// Opens the file and finds out its format; false if it is not to be read.
bool Open(const QString& path, QFile& file, QImageReader& reader) {
    // A pipe or device would block or never end.
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > kMaxPictureFile)
        return false;
    file.setFileName(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    reader.setDevice(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    return reader.canRead() && IsKnownFormat(reader.format());
}

// Only icon files hold one picture in several sizes; in the others, further pictures are frames.
void ChooseSize(QImageReader& reader, int wanted) {
    if (reader.format() != "ico")
        return;
    int best = 0;
    int bestWidth = 0;
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        const int width = reader.size().width();
        const bool enough = width >= wanted;
        if (bestWidth >= wanted ? enough && width < bestWidth : width > bestWidth) {
            best = i;
            bestWidth = width;
        }
    }
    reader.jumpToImage(best);
}

} // namespace

QImage LoadPicture(const QString& path, int wanted) {
    QFile file;
    QImageReader reader;
    if (!Open(path, file, reader))
        return {};
    ChooseSize(reader, wanted);
    if (!IsLoadableSize(reader.size()))
        return {};
    QImage image;
    // Some formats repeat their size further inside the file.
    if (!reader.read(&image) || !IsLoadableSize(image.size()))
        return {};
    return std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QSize ReadPictureSize(const QString& path) {
    QFile file;
    QImageReader reader;
    if (!Open(path, file, reader))
        return {};
    const QSize size = reader.size();
    return IsLoadableSize(size) ? size : QSize();
}

} // namespace paneda
