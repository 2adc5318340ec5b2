#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace paneda {

// Pictures that are larger, in either direction, are not loaded, and neither are larger files.
inline constexpr int kMaxPictureSide = 4096; // pixels
inline constexpr qint64 kMaxPictureFile = 64 * 1024 * 1024;

// A picture from a file, as premultiplied ARGB. Its format (PNG, JPG, BMP, GIF, ICO) is that of its contents,
// whatever its extension says. Of a file with several pictures, the smallest one that is at least `wanted`
// pixels wide is taken, or the largest if none is. Null for whatever is no regular file, damaged, too large
// or of another format.
QImage LoadPicture(const QString& path, int wanted = 0);

// The size of the picture that LoadPicture would give, in pixels, read from the file's header alone. Empty if
// the header has none.
QSize ReadPictureSize(const QString& path);

} // namespace paneda
