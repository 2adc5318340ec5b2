#pragma once

#include <QRect>
#include <QSize>
#include <QString>

namespace paneda {

// How a picture is drawn on what is under it: Clear replaces it with its alpha, Over blends.
enum class DrawMode { Clear, Over };

// How DrawPicture fits a picture into its box.
struct PictureDrawing {
    DrawMode Mode = DrawMode::Clear;
    // "original size", "stretch", "stretch proportional"; anything else tiles, or with `Fit` letterboxes.
    QString Method = {};
    QString Alignment = QStringLiteral("5");
    bool Fit = false;
};

// Which part of a picture is drawn where, in pixels. The source rectangle is scaled to the target one.
struct PicturePlace {
    QRect Source;
    QRect Target;

    friend bool operator==(const PicturePlace&, const PicturePlace&) = default;
};

// For every method but tiling. With "original size" the source may reach beyond the picture on all sides; the
// other methods keep it inside. Offsets that fall between two pixels go to the left and up.
PicturePlace PlacePicture(const QSize& picture, const QRect& box, const PictureDrawing& drawing);

// Whether the picture is drawn at its own size.
bool KeepsSize(const PictureDrawing& drawing);

// Whether the picture is repeated from the top left corner of its box.
bool IsTiled(const PictureDrawing& drawing);

} // namespace paneda
