#pragma once

#include "core/disk/disk_path.h"
#include "skin/decoding_time.h"
#include "skin/picture_bytes.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <tl/expected.hpp>

#include <vector>

namespace paneda {

// Files that are larger are not read.
inline constexpr qint64 kMaxPictureFile = 64 * 1024 * 1024; // bytes

// Why a picture is not shown.
struct PictureError {
    QString Path; // host path
    QString Reason;
    bool Late = false; // decoding it took too long; another time it may not

    // One line for the user.
    QString Text() const;
};

// Several of them for the user: a line for each folder and reason, with the first files.
QString LeftOutText(const std::vector<PictureError>& errors);

// What is wanted of a picture.
struct PictureWish {
    int Width = 0; // pixels; of a file with several pictures the smallest one of this width, or the largest
    QSize Room =
        {}; // pixels; what lies beyond, at the right and below, is cut off. Empty: nothing is cut off
    int MaxSide = kMaxPictureSide; // pixels; a picture that is wider or higher is refused
    bool Small = false; // it is shown Width pixels wide, so that a far larger one may come scaled down
};

// A picture from a file, as premultiplied ARGB. Its format (PNG, JPG, BMP, GIF, ICO) is that of its contents,
// whatever its extension says. Fails for whatever is no regular file, damaged, too large, of another format
// or of too many scans, and when the time is over before the picture is whole.
tl::expected<QImage, PictureError> ReadPicture(const DiskPath& path, const PictureWish& wish,
                                               DecodingTime& time);

// The same of bytes in memory, within a second. Fails with a reason for the user.
tl::expected<QImage, QString> DecodePicture(const QByteArray& bytes, const PictureWish& wish = {});

// ReadPicture within a second; null on failure.
QImage LoadPicture(const DiskPath& path, int wanted = 0);

// The same, scaled down where it is wider or higher than `side` pixels.
QImage LoadFittingPicture(const DiskPath& path, int side);

// The size of the picture that ReadPicture would give, in pixels. Nothing is decoded.
tl::expected<QSize, PictureError> MeasurePicture(const DiskPath& path);

// The same; empty on failure.
QSize ReadPictureSize(const DiskPath& path);

} // namespace paneda
