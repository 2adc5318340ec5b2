#pragma once

#include "organiser/store_steps.h"

namespace paneda {

// Makes a copy of a picture (host path) the one that a button's file shows, in place of the one that it shows
// now. Where there are more of the button's name, those that have the new one's name or would be shown
// instead of it are kept under a free name (PlaceAside). With `moveSource` the file is deleted afterwards,
// unless it was a picture of this button itself. After a failure the former picture is still there, or the
// new one.
FileResult ReplacePicture(const DiskPath& button, const QString& picture, bool moveSource);

// Keeps pictures that have the name of a button's file under free names, so that a new button shows its own
// icon and one that is fetched for it overwrites none of them.
FileResult PutPicturesAside(const DiskPath& button);

} // namespace paneda
