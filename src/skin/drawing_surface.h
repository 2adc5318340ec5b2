#pragma once

#include "core/text/twips.h"
#include "skin/colour.h"
#include "skin/picture_placing.h"
#include "skin/smooth_label.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace paneda {

// What the panel's pictures are composed on. Places and sizes are twips and are cut down to whole pixels
// here, each measure for itself. A null picture draws nothing: a skin's missing piece leaves its place as it
// was.
class DrawingSurface {
public:
    // Transparent, of a size in pixels; one that is not positive makes a surface that draws nothing.
    explicit DrawingSurface(const QSize& pixels);

    // Draws on this picture.
    explicit DrawingSurface(QImage image);

    // Premultiplied ARGB.
    const QImage& Image() const { return image_; }

    // A picture fitted into a box, or tiled over it.
    void DrawPicture(const QImage& picture, const TwipsRect& box, const PictureDrawing& drawing = {});

    // A picture at its own size.
    void DrawPictureAt(const QImage& picture, int left, int top, DrawMode mode = DrawMode::Clear);

    // An icon or logo at its own size, blended in, cut at the right and bottom by the box.
    void DrawIcon(const QImage& icon, const TwipsRect& box);

    void DrawLabel(const QString& text, const TwipsRect& box, const LabelStyle& style);

    // One line of text with its top left corner at the place, cut by a rectangle. With an outline colour, one
    // pixel of that around it.
    void PrintLine(const QString& text, int left, int top, const TwipsRect& clip, const TextFont& font,
                   Argb color, std::optional<Argb> outline = {});

    // Blended over what is there; replaces it if the last drawing or clearing replaced what was there.
    void FillRect(Argb color, const TwipsRect& rect);

    // Makes a rectangle fully transparent.
    void ClearRect(const TwipsRect& rect);

    // Squares in two greys, so that a transparent part above them is seen as such.
    void DrawCheckerBackdrop(const TwipsRect& rect, int cell);

private:
    void Tile(const QImage& picture, const QRect& box);

    QImage image_;
    DrawMode mode_ = DrawMode::Over;
};

} // namespace paneda
