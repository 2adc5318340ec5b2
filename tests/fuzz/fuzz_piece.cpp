#include "skin/picture_loader.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

// A picture of a skin or of a button. Whatever its bytes say, the picture that comes out keeps to the limits,
// and is of the size that was told before.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paneda;
    static const QTemporaryDir folder;
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto encoded = FindPicture(bytes, 0);
    if (!encoded)
        return 0;
    const QString path = folder.filePath(QStringLiteral("piece.png"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return 0;
    file.close();
    const QSize told = ReadPictureSize(path);
    const QImage picture = LoadPicture(path);
    if (picture.isNull())
        return 0;
    // A frame of a GIF, and a picture of an icon file, may be smaller than their files say.
    const QByteArray format(encoded->Format);
    const bool isExact = format != "gif" && format != "ico";
    if (picture.width() > kMaxPictureSide || picture.height() > kMaxPictureSide ||
        (isExact && picture.size() != told))
        __builtin_trap();
    return 0;
}
