#pragma once

#include "core/files/drive_map.h"
#include "skin/icon_source.h"
#include "skin/picture_files.h"
#include "skin/picture_loader.h"

#include <QImage>
#include <QString>

#include <vector>

namespace paneda {

// What the picture on a button is, and from where.
struct ButtonPicture {
    QImage Image;           // null if there is none
    bool IsOwnFile = false; // a picture file beside the button's file, of any size; else an icon
};

// Milliseconds for decoding the pictures beside the buttons of one category.
inline constexpr quint32 kMaxButtonPicturesTime = 2000;

// Where buttons get their pictures from, and the limit of their width.
struct ButtonSources {
    IconSource& Icons;
    const DriveMap& Drives;
    QString AppPath; // stored form
    double ButtonsPerRow = 5;
    PictureFinder Finder = {};
    DecodingTime Time{kMaxButtonPicturesTime}; // for the pictures beside the buttons
    std::vector<PictureError> LeftOut = {};    // pictures beside buttons that could not be shown

    // The picture beside a button's file, else the icon of a record's target or of the file itself. `target`
    // is the path of the button's file in the stored form; the icon has that size.
    ButtonPicture PictureOf(const QString& target, const IconSize& size);
};

} // namespace paneda
