#include "ui/skin/screenshot_view.h"

#include <QPainter>

namespace paneda {

ScreenshotView::ScreenshotView(QWidget* parent) : QWidget(parent) {}

void ScreenshotView::SetPicture(const DensePicture& picture) {
    picture_ = picture;
    scaled_ = {};
    update();
}

void ScreenshotView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (picture_.IsNull()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("No screenshot"));
        return;
    }
    const double ratio = devicePixelRatioF();
    QSizeF shown(QSizeF(picture_.Image.size()) / picture_.Density);
    if (shown.width() > width() || shown.height() > height())
        shown.scale(size(), Qt::KeepAspectRatio);
    const QSize pixels = (shown * ratio).toSize().expandedTo({1, 1});
    if (scaled_.size() != pixels) {
        scaled_ = QPixmap::fromImage(
            picture_.Image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        scaled_.setDevicePixelRatio(ratio);
    }
    // On whole pixels of the screen, or it would be smeared over two.
    const QPoint corner =
        QPoint(int(width() * ratio) - pixels.width(), int(height() * ratio) - pixels.height()) / 2;
    painter.drawPixmap(QPointF(corner) / ratio, scaled_);
}

} // namespace paneda
