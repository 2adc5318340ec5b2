#include "platform/linux/foreign_icon.h"

#include "core/files/file_io.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QPixmap>
#include <QStandardPaths>
#include <QtEndian>

#include <algorithm>

namespace paneda {

namespace {

constexpr qint64 kMaxFile = 4 * 1024 * 1024;
constexpr int kMaxSide = 1024;   // pixels; twice the largest size of icon themes
constexpr int kMaxPictures = 32; // of an icon file

bool IsBelow(const QString& path, const QString& folder) {
    const QString root = QFileInfo(folder).canonicalFilePath();
    return !root.isEmpty() && path.startsWith(root.endsWith(u'/') ? root : QString(root + u'/'));
}

bool IsTrusted(const QString& path, const QString& appFolder) {
    const QString file = QFileInfo(path).canonicalFilePath();
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation) +
                                QStringList{QDir::homePath(), QStringLiteral("/usr"), QStringLiteral("/opt")};
    return !IsBelow(file, appFolder) &&
           std::any_of(folders.begin(), folders.end(),
                       [&file](const QString& folder) { return IsBelow(file, folder); });
}

bool IsBounded(const QByteArray& format) {
    return format == "png" || format == "ico" || format == "xpm" || format == "bmp" || format == "gif";
}

bool IsSmall(const QSize& size) {
    return !size.isEmpty() && size.width() <= kMaxSide && size.height() <= kMaxSide;
}

// An icon file says a size for each of its pictures, and a PNG among them may be larger than that.
bool HoldsLargePng(const QByteArray& bytes) {
    constexpr qsizetype kWidthAt = 16;
    constexpr qsizetype kHeadSize = 24;
    const QByteArray mark = QByteArrayLiteral("\x89PNG\r\n\x1A\n");
    for (qsizetype at = bytes.indexOf(mark); at >= 0; at = bytes.indexOf(mark, at + 1)) {
        if (bytes.size() - at < kHeadSize)
            return false;
        const char* width = bytes.constData() + at + kWidthAt;
        if (qFromBigEndian<quint32>(width) > kMaxSide || qFromBigEndian<quint32>(width + 4) > kMaxSide)
            return true;
    }
    return false;
}

QIcon Decode(QImageReader& reader, int pixels) {
    QIcon icon;
    const bool isIcon = reader.format() == "ico";
    const int count = isIcon ? std::min(reader.imageCount(), kMaxPictures) : 1;
    for (int i = 0; i < count && (i == 0 || reader.jumpToImage(i)); ++i) {
        if (reader.format() == "svg")
            reader.setScaledSize(reader.size().scaled(pixels, pixels, Qt::KeepAspectRatio));
        else if (!IsSmall(reader.size()))
            continue;
        const QImage picture = reader.read();
        if (IsSmall(picture.size()))
            icon.addPixmap(QPixmap::fromImage(picture));
    }
    return icon;
}

} // namespace

QIcon ForeignIcon(const QString& path, int pixels, const QString& appFolder) {
    QByteArray bytes = ReadFileBytes(path, kMaxFile).value_or(QByteArray());
    if (bytes.isEmpty() || HoldsLargePng(bytes))
        return {};
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format();
    const bool isFree = format == "svg" || format == "jpeg";
    return IsBounded(format) || (isFree && IsTrusted(path, appFolder)) ? Decode(reader, pixels) : QIcon();
}

} // namespace paneda
