#pragma once

#include <QByteArray>
#include <QString>

#include <tl/expected.hpp>

namespace paneda {

// Looks at the bytes of a picture file before anything decodes them.

// Each scan of a JPEG costs a pass over the whole picture, however few bytes it has. Usual files have up to
// a dozen.
inline constexpr int kMaxScans = 100;

// Pictures that are larger, in either direction, are not loaded.
inline constexpr int kMaxPictureSide = 4096; // pixels

// What a decoder gets.
struct EncodedPicture {
    const char* Format = ""; // "png", "jpeg", "bmp", "gif" or "ico", as QImageReader calls them
    QByteArray Bytes;
};

// The picture in a file, told by its contents. Of an icon file, which holds several, it is the smallest one
// that is at least `wanted` pixels wide, or the largest if none is. A PNG comes without its texts and other
// additions, which can unpack to thousands of times their size. Fails with a reason for the user.
tl::expected<EncodedPicture, QString> FindPicture(const QByteArray& file, int wanted);

// Number of scans of a JPEG file, also of a damaged one.
int CountScans(const QByteArray& jpeg);

} // namespace paneda
