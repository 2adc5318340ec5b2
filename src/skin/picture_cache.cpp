#include "skin/picture_cache.h"

#include "skin/picture_loader.h"

#include <QBuffer>
#include <QDir>
#include <QImageWriter>

namespace paneda {

namespace {

// Of 0 to 100, as the writer counts: 100 does not pack. A shown picture is read at each switch of category,
// which unpacking would make half as long again; one without titles is hardly ever read.
constexpr int kUnpacked = 100;
constexpr int kQuicklyPacked = 80;

QString PathOf(const QString& folder, int number, PictureKind kind) {
    return QDir(folder).filePath(CategoryPictureName(number, kind));
}

} // namespace

QString CategoryPictureName(int number, PictureKind kind) {
    return QStringLiteral("category%1%2.png")
        .arg(number, 3, 10, QLatin1Char('0'))
        .arg(kind == PictureKind::Base ? QStringLiteral("a") : QString());
}

QImage LoadCategoryPicture(const QString& folder, int number, PictureKind kind) {
    return LoadPicture(PathOf(folder, number, kind));
}

FileResult SaveCategoryPicture(const QString& folder, int number, PictureKind kind, const QImage& picture) {
    const QString path = PathOf(folder, number, kind);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QImageWriter writer(&bytes, "png");
    writer.setQuality(kind == PictureKind::Finished ? kUnpacked : kQuicklyPacked);
    if (!writer.write(picture))
        return tl::make_unexpected(FileError{QDir::toNativeSeparators(path), writer.errorString()});
    return ReplaceFile(path, bytes.data());
}

} // namespace paneda
