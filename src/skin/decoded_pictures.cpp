#include "skin/decoded_pictures.h"

#include "skin/picture_loader.h"

namespace paneda {

namespace {

// Pictures beyond that are decoded at each use.
constexpr qint64 kMaxBytes = 128 * 1024 * 1024;

} // namespace

QImage DecodedPictures::Get(const QString& path) {
    if (path.isEmpty())
        return {};
    const auto known = pictures_.constFind(path);
    if (known != pictures_.constEnd())
        return *known;
    const QImage picture = LoadPicture(path);
    if (bytes_ + picture.sizeInBytes() <= kMaxBytes) {
        bytes_ += picture.sizeInBytes();
        pictures_.insert(path, picture);
    }
    return picture;
}

} // namespace paneda
