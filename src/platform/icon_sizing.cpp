#include "platform/icon_sizing.h"

#include <QPainter>

#include <algorithm>

namespace paneda {

QImage SizedIcon(QImage picture, const IconSize& size) {
    const int pixels = size.OnScreen();
    const int longest = std::max(picture.width(), picture.height());
    const int wanted = std::min(pixels, DeviceLength(longest, size.Ratio));
    if (longest > 0 && wanted != longest)
        picture = picture.scaled(wanted, wanted, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (picture.isNull() || picture.size() == QSize(pixels, pixels))
        return picture;
    QImage sized(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    sized.fill(Qt::transparent);
    QPainter(&sized).drawImage((pixels - picture.width()) / 2, (pixels - picture.height()) / 2, picture);
    return sized;
}

} // namespace paneda
