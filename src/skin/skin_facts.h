#pragma once

#include "core/disk/disk_path.h"
#include "skin/dense_picture.h"

#include <QStringList>

namespace paneda {

// What the chooser shows of a skin.
struct SkinFacts {
    QStringList Options;
    bool HasReadme = false;
    bool HasOriginal = false;
    DensePicture Screenshot; // null if there is none that can be shown
};

// A skin's `readme.txt`, if it is a text: on Linux a script or a program of that name would be started. Empty
// if there is none.
QString FindReadme(const DiskPath& skin);

// Reads what is shown of a skin while one of its options is selected; `option` is empty for none. The
// screenshot is that of the option, else that of the skin; of several densities the one for this ratio. At
// most `pixels` of its width and height are needed. Takes half a second at most, and no memory for a picture
// that is too large.
SkinFacts ReadSkinFacts(const DiskPath& skin, const QString& option, double ratio, int pixels);

} // namespace paneda
