#include "skin/scaled_picture.h"

#include "skin/picture_loader.h"

#include <QDir>
#include <QPainter>

#include <algorithm>

namespace paneda {

namespace {

QSize ScaledSize(const QSize& picture, const QSize& box, bool keepRatio) {
    if (!keepRatio)
        return box;
    const double pictureRatio = double(picture.width()) / picture.height();
    const double boxRatio = double(box.width()) / box.height();
    const QSize size = boxRatio < pictureRatio ? QSize(box.width(), int(box.width() / pictureRatio))
                                               : QSize(int(box.height() * pictureRatio), box.height());
    return size.expandedTo({1, 1});
}

} // namespace

tl::expected<QImage, QString> LoadScaledPicture(const QString& path, int& width, int& height,
                                                const QColor& ground, bool keepRatio) {
    const QImage picture = LoadPicture(path, std::max(width, height));
    if (picture.isNull())
        return tl::make_unexpected(QStringLiteral("Error loading picture ") + QDir::toNativeSeparators(path));
    if (width == -1 || height == -1) {
        width = picture.width();
        height = picture.height();
    }
    width = std::clamp(width, 1, kMaxPictureSide);
    height = std::clamp(height, 1, kMaxPictureSide);
    QImage result(width, height, QImage::Format_ARGB32_Premultiplied);
    result.fill(QColor(ground.red(), ground.green(), ground.blue()));
    const QSize size = ScaledSize(picture.size(), result.size(), keepRatio);
    QPainter painter(&result);
    painter.drawImage(QPoint(0, 0), picture.size() == size ? picture
                                                           : picture.scaled(size, Qt::IgnoreAspectRatio,
                                                                            Qt::SmoothTransformation));
    return result;
}

} // namespace paneda
