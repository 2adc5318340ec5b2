#include "ui/common/show_node_icon.h"

#include "core/text/text_rules.h"
#include "notes/node_icon.h"
#include "skin/scaled_picture.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kSmallIcon = 16; // pixels

void Show(QLabel& label, QImage image, double ratio) {
    image.setDevicePixelRatio(ratio);
    label.setPixmap(QPixmap::fromImage(std::move(image)));
}

} // namespace

void ShowNodeIcon(const NodeIcon& icon, QLabel& picture, const QColor& backColor, const AppState& state,
                  FileIcons& icons, const DiskWork& work) {
    const double ratio = picture.devicePixelRatioF();
    const auto showDesktopIcon = [&](const QString& target) {
        const int side = qRound(kSmallIcon * ratio);
        QImage ground(side, side, QImage::Format_ARGB32_Premultiplied);
        ground.fill(backColor);
        QPainter(&ground).drawImage(
            ground.rect(), icons.IconOf(target, {state.Drives, state.AppPath}, IconSize(kSmallIcon, ratio)));
        Show(picture, ground, ratio);
    };
    if (icon.Kind == u"File") {
        showDesktopIcon(icon.Target);
        return;
    }
    int width = qRound(picture.width() * ratio);
    int height = qRound(picture.height() * ratio);
    QString file;
    tl::expected<QImage, QString> image;
    const auto read = [&] {
        file = icon.IsImageFile ? icon.Path : FindNodeIcon(icon.Path);
        if (!file.isEmpty())
            image = LoadScaledPicture(file, width, height, backColor, true);
    };
    if (work)
        work(read);
    else
        read();
    if (file.isEmpty() && icon.Kind == u"URL")
        showDesktopIcon(IfEmpty(icon.Target, QStringLiteral("http://localhost/")));
    else if (!file.isEmpty() && image)
        Show(picture, *image, ratio);
}

} // namespace paneda
