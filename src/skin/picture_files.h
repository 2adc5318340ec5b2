#pragma once

#include "core/files/file_io.h"
#include "core/text/twips.h"
#include "skin/folder_names.h"

#include <QString>

namespace paneda {

// A button's picture is a file beside it with the same stem and the extension of a picture. All paths are
// host paths, all names are found in any case of letters. Where several pictures stand beside one button, the
// first of .PNG, .JPG, .JPE, .JPEG, .BMP, .GIF, .ICO counts.

// A button's path without its extension.
QString PictureStem(const QString& path);

// The picture of a stem, "<folder>/[001] Editor [11]"; empty if there is none.
QString FindPictureFile(const QString& stem);

// The same for many buttons: keeps the listing of the folder that was asked for last.
class PictureFinder {
public:
    QString Find(const QString& stem);

private:
    QString folder_;
    FolderNames names_;
};

// Deletes the picture of a stem. No picture is no failure.
FileResult DeletePictureFile(const QString& stem);

// A picture's size at 15 twips a pixel; empty if it cannot be loaded.
TwipsSize ImageSizeTwips(const QString& path);

} // namespace paneda
