#pragma once

#include <QPixmap>
#include <QString>

#include <vector>

namespace paneda {

// One picture, drawn once for each of several device pixel ratios, the lowest first. Empty for none.
using ScrollPicture = std::vector<QPixmap>;

// The picture that is sharp at a ratio. It scales down if there is none of this very ratio. Null for none.
QPixmap ForRatio(const ScrollPicture& picture, double ratio);

// The size of a picture in pixels of ratio 1.
QSize SizeOf(const ScrollPicture& picture);

struct ScrollBarPictures {
    ScrollPicture Background;
    ScrollPicture Thumb;
    ScrollPicture Up;
    ScrollPicture Down;
    ScrollPicture Left;
    ScrollPicture Right;
};

// A picture NAME.png of a skin with those of "@2x" and "@3x"; without what cannot be read. `skinPath` is a
// host folder; empty for none.
ScrollPicture LoadSkinPicture(const QString& skinPath, const char* name);

// The pictures of a skin, a host folder: scrollback, scrollthumb, scrollup and scrolldown.png, with those of
// "@2x" and "@3x" for high resolutions, and the built-in ones where it has none or one that cannot be read.
// The skin's arrows for a horizontal bar are its others, turned. An empty folder gives the built-in ones.
ScrollBarPictures LoadScrollBarPictures(const QString& skinPath = {});

} // namespace paneda
