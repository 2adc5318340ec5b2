#include "ui/common/scroll_pictures.h"

#include "core/files/file_io.h"
#include "skin/picture_loader.h"

#include <QTransform>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kHighestRatio = 3;
constexpr int kQuarterLeft = -90; // degrees

QString NameFor(const QString& name, int ratio) {
    return ratio == 1 ? name + QStringLiteral(".png") : QStringLiteral("%1@%2x.png").arg(name).arg(ratio);
}

template <class Load>
ScrollPicture EachRatio(const QString& name, const Load& load) {
    ScrollPicture picture;
    for (int ratio = 1; ratio <= kHighestRatio; ++ratio) {
        QPixmap pixmap = load(NameFor(name, ratio));
        if (pixmap.isNull())
            continue;
        pixmap.setDevicePixelRatio(ratio);
        picture.push_back(pixmap);
    }
    return picture;
}

ScrollPicture BuiltIn(const char* name) {
    return EachRatio(QLatin1String(name), [](const QString& file) {
        return QPixmap::fromImage(QImage(QStringLiteral(":/scrollbar/") + file));
    });
}

ScrollPicture Turned(const ScrollPicture& picture) {
    ScrollPicture turned;
    for (const QPixmap& pixmap : picture)
        turned.push_back(pixmap.transformed(QTransform().rotate(kQuarterLeft)));
    return turned;
}

} // namespace

ScrollPicture LoadSkinPicture(const QString& skinPath, const char* name) {
    if (skinPath.isEmpty())
        return {};
    return EachRatio(QLatin1String(name), [&skinPath](const QString& file) {
        const DiskPath path = FindEntry(DiskPath::Below(skinPath, skinPath), file);
        return EntryExists(path) ? QPixmap::fromImage(LoadPicture(path)) : QPixmap();
    });
}

QPixmap ForRatio(const ScrollPicture& picture, double ratio) {
    const auto enough = std::find_if(picture.begin(), picture.end(), [ratio](const QPixmap& pixmap) {
        return pixmap.devicePixelRatio() >= ratio;
    });
    if (enough != picture.end())
        return *enough;
    return picture.empty() ? QPixmap() : picture.back();
}

QSize SizeOf(const ScrollPicture& picture) {
    return picture.empty() ? QSize() : picture.front().deviceIndependentSize().toSize();
}

ScrollBarPictures LoadScrollBarPictures(const QString& skinPath) {
    const auto orBuiltIn = [](const ScrollPicture& own, const char* name) {
        return own.empty() ? BuiltIn(name) : own;
    };
    const ScrollPicture up = LoadSkinPicture(skinPath, "scrollup");
    const ScrollPicture down = LoadSkinPicture(skinPath, "scrolldown");
    return {orBuiltIn(LoadSkinPicture(skinPath, "scrollback"), "background"),
            orBuiltIn(LoadSkinPicture(skinPath, "scrollthumb"), "thumb"),
            orBuiltIn(up, "up"),
            orBuiltIn(down, "down"),
            orBuiltIn(Turned(up), "left"),
            orBuiltIn(Turned(down), "right")};
}

} // namespace paneda
