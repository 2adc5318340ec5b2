#include "ui/organiser/show_node_icon.h"

#include "core/files/file_io.h"
#include "core/text/text_rules.h"
#include "skin/scaled_picture.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kSmallIcon = 16; // pixels

// The file of the icon; empty for none.
QString PictureOf(const NodeIcon& icon) {
    if (icon.IsImageFile)
        return icon.Path;
    for (const auto& name : {QStringLiteral("image.png"), QStringLiteral("image.ico")}) {
        const QString file = FindEntry(icon.Path, name);
        if (LookAt(file).Kind == EntryKind::File)
            return file;
    }
    return {};
}

void Show(QLabel& label, QImage image, double ratio) {
    image.setDevicePixelRatio(ratio);
    label.setPixmap(QPixmap::fromImage(std::move(image)));
}

} // namespace

void ShowNodeIcon(const NodeIcon& icon, QLabel& picture, const QColor& backColor, const AppState& state,
                  FileIcons& icons) {
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
    const QString file = PictureOf(icon);
    if (!file.isEmpty()) {
        int width = qRound(picture.width() * ratio);
        int height = qRound(picture.height() * ratio);
        if (const auto image = LoadScaledPicture(file, width, height, backColor, true))
            Show(picture, *image, ratio);
    } else if (icon.Kind == u"URL") {
        showDesktopIcon(IfEmpty(icon.Target, QStringLiteral("http://localhost/")));
    }
}

} // namespace paneda
