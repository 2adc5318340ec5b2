#pragma once

#include "core/text/twips.h"
#include "skin/colour.h"
#include "skin/dense_picture.h"
#include "skin/picture_placing.h"
#include "skin/smooth_label.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace paneda {

// What the panel's pictures are composed on. Places and sizes are twips and are cut down to whole pixels of
// the layout here, each measure for itself; these become pixels of the screen as device_pixels.h says. Text
// is written at the screen's resolution. A picture of the screen's density is drawn as it is, any other is
// scaled smoothly. A null picture draws nothing: a skin's missing piece leaves its place as it was.
class DrawingSurface {
public:
    // Transparent, of a size in layout pixels; one that is not positive makes a surface that draws nothing.
    explicit DrawingSurface(const QSize& pixels, double ratio = 1);

    // Draws on this picture, whose pixels are those of a screen of that ratio.
    explicit DrawingSurface(QImage image, double ratio = 1);

    // Premultiplied ARGB, in device pixels.
    const QImage& Image() const { return image_; }

    // Device pixels for each layout pixel.
    double Ratio() const { return ratio_; }

    // A picture fitted into a box, or tiled over it. With `Fit` the picture may be of any density: it is
    // fitted at its full resolution.
    void DrawPicture(const DensePicture& picture, const TwipsRect& box, const PictureDrawing& drawing = {});

    // A picture at its own size.
    void DrawPictureAt(const DensePicture& picture, int left, int top, DrawMode mode = DrawMode::Clear);

    // An icon or logo at its own size, blended in, cut at the right and bottom by the box.
    void DrawIcon(const DensePicture& icon, const TwipsRect& box);

    void DrawLabel(const QString& text, const TwipsRect& box, const LabelStyle& style);

    // One line of text with its top left corner at the place, cut by a rectangle. With an outline colour, one
    // layout pixel of that around it. The font's size is layout pixels.
    void PrintLine(const QString& text, int left, int top, const TwipsRect& clip, const TextFont& font,
                   Argb color, std::optional<Argb> outline = {});

    // Blended over what is there; replaces it if the last drawing or clearing replaced what was there.
    void FillRect(Argb color, const TwipsRect& rect);

    // The outline of a rectangle, one layout pixel wide, within it.
    void DrawOutline(Argb color, const TwipsRect& rect);

    // Makes a rectangle fully transparent.
    void ClearRect(const TwipsRect& rect);

    // Squares in two greys, so that a transparent part above them is seen as such.
    void DrawCheckerBackdrop(const TwipsRect& rect, int cell);

private:
    // Device pixels of a rectangle.
    QRect OnScreen(const QRect& pixels) const { return DeviceRect(pixels, ratio_); }
    QRect OnScreen(const TwipsRect& rect) const { return OnScreen(ToPixels(rect)); }
    // In layout pixels.
    void Tile(const DensePicture& picture, const QRect& box);
    void DrawWhole(const DensePicture& picture, const QPoint& place, const QRect& clip);
    // In the picture's pixels and those of the screen.
    void DrawPart(const QImage& picture, const PicturePlace& place);
    // Draws a text at offsets around its place in one colour, then at its place in another.
    template <class Draw>
    void DrawOutlined(QPainter& painter, std::optional<Argb> outline, Argb color, const Draw& draw) const;

    QImage image_;
    double ratio_ = 1;
    DrawMode mode_ = DrawMode::Over;
};

} // namespace paneda
