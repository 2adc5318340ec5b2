#include "skin/picture_loader.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

// A piece of a skin, PNG or JPG. Whatever its bytes say, the picture that comes out keeps to the limits, and
// is of the size that its header told.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paneda;
    static const QTemporaryDir folder;
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    // The two formats that pieces come in; others are not looked for among a skin's files.
    if (!bytes.startsWith("\x89PNG\r\n\x1a\n") && !bytes.startsWith("\xFF\xD8\xFF"))
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
    if (picture.width() > kMaxPictureSide || picture.height() > kMaxPictureSide || picture.size() != told)
        __builtin_trap();
    return 0;
}
