#include "skin/drawing_surface.h"

#include "skin/image_scaling.h"

#include <QBrush>
#include <QColor>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

namespace paneda {

namespace {

constexpr Argb kLightCell = 0xFF969696;
constexpr Argb kDarkCell = 0xFF646464;

constexpr std::array<QPoint, 8> kOutline{QPoint(-1, -1), QPoint(-1, 0), QPoint(-1, 1), QPoint(0, -1),
                                         QPoint(0, 1),   QPoint(1, -1), QPoint(1, 0),  QPoint(1, 1)};

QPainter::CompositionMode CompositionOf(DrawMode mode) {
    return mode == DrawMode::Clear ? QPainter::CompositionMode_Source : QPainter::CompositionMode_SourceOver;
}

// A painter that cannot begin prints a warning at every call.
bool Begin(QPainter& painter, QImage& image, DrawMode mode) {
    if (image.isNull() || !painter.begin(&image))
        return false;
    painter.setCompositionMode(CompositionOf(mode));
    return true;
}

} // namespace

DrawingSurface::DrawingSurface(const QSize& pixels, double ratio) : ratio_(ratio) {
    if (pixels.isEmpty())
        return;
    image_ = QImage(DeviceSize(pixels, ratio), QImage::Format_ARGB32_Premultiplied);
    image_.fill(0);
}

DrawingSurface::DrawingSurface(QImage image, double ratio)
    : image_(std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied)), ratio_(ratio) {}

void DrawingSurface::DrawPicture(const DensePicture& picture, const TwipsRect& box,
                                 const PictureDrawing& drawing) {
    const QRect target = ToPixels(box);
    if (picture.IsNull() || target.isEmpty())
        return;
    mode_ = drawing.Mode;
    if (IsTiled(drawing)) {
        Tile(picture, target);
        return;
    }
    if (KeepsSize(drawing)) {
        const PicturePlace place = PlacePicture(picture.Size(), target, drawing);
        DrawWhole(picture, place.Target.topLeft() - place.Source.topLeft(), place.Target);
    } else {
        DrawPart(picture.Image, PlacePicture(picture.Image.size(), OnScreen(target), drawing));
    }
}

void DrawingSurface::DrawPart(const QImage& picture, const PicturePlace& place) {
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    if (place.Source.size() == place.Target.size()) {
        painter.setClipRect(place.Target);
        painter.drawImage(place.Target.topLeft() - place.Source.topLeft(), picture);
    } else {
        painter.drawImage(place.Target.topLeft(), ScalePart(picture, place.Source, place.Target.size()));
    }
}

void DrawingSurface::DrawWhole(const DensePicture& picture, const QPoint& place, const QRect& clip) {
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    if (picture.Density == ratio_) {
        painter.setClipRect(OnScreen(clip));
        painter.drawImage(OnScreen({place, QSize(1, 1)}).topLeft(), picture.Image);
        return;
    }
    // Only what is seen is scaled: a wallpaper may be far larger than the window.
    const QRect seen = QRect(place, picture.Size()) & clip;
    const QRect target = OnScreen(seen);
    if (!target.isEmpty())
        painter.drawImage(
            target.topLeft(),
            Resample(picture.Image, DeviceRect(seen.translated(-place), picture.Density), target.size()));
}

// Tiles of another density are put together before they are scaled, so that no seam shows between them.
void DrawingSurface::Tile(const DensePicture& picture, const QRect& box) {
    const QRect target = OnScreen(box);
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    if (picture.Density == ratio_) {
        painter.setBrushOrigin(target.topLeft());
        painter.fillRect(target, QBrush(picture.Image));
        return;
    }
    QImage tiled(DeviceSize(box.size(), picture.Density), QImage::Format_ARGB32_Premultiplied);
    QPainter tiles(&tiled);
    tiles.setCompositionMode(QPainter::CompositionMode_Source);
    tiles.fillRect(tiled.rect(), QBrush(picture.Image));
    tiles.end();
    painter.drawImage(target.topLeft(), Resample(tiled, tiled.rect(), target.size()));
}

void DrawingSurface::DrawPictureAt(const DensePicture& picture, int left, int top, DrawMode mode) {
    mode_ = mode;
    const QPoint place(TwipsToPixels(left), TwipsToPixels(top));
    if (!picture.IsNull())
        DrawWhole(picture, place, QRect(place, picture.Size()));
}

void DrawingSurface::DrawIcon(const DensePicture& icon, const TwipsRect& box) {
    mode_ = DrawMode::Over;
    const QRect clip = ToPixels(box);
    if (!icon.IsNull() && !clip.isEmpty())
        DrawWhole(icon, clip.topLeft(), clip);
}

template <class Draw>
void DrawingSurface::DrawOutlined(QPainter& painter, std::optional<Argb> outline, Argb color,
                                  const Draw& draw) const {
    if (outline) {
        painter.setPen(QColor::fromRgba(*outline));
        for (int distance = DeviceLength(1, ratio_); distance > 0; --distance) {
            for (const QPoint& direction : kOutline)
                draw(direction * distance);
        }
    }
    painter.setPen(QColor::fromRgba(color));
    draw(QPoint());
}

void DrawingSurface::DrawLabel(const QString& text, const TwipsRect& box, const LabelStyle& style) {
    mode_ = DrawMode::Over;
    LabelStyle onScreen = style;
    onScreen.Font = AtRatio(style.Font, ratio_);
    const SmoothLabel layout(text, OnScreen(box), onScreen);
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    painter.setClipRect(layout.Clip());
    DrawOutlined(painter, style.Border ? std::optional(style.BorderColor) : std::nullopt, style.Color,
                 [&](const QPoint& offset) { layout.Draw(painter, offset); });
}

void DrawingSurface::PrintLine(const QString& text, int left, int top, const TwipsRect& clip,
                               const TextFont& font, Argb color, std::optional<Argb> outline) {
    mode_ = DrawMode::Over;
    QTextLayout layout(text, MakeFont(AtRatio(font, ratio_)));
    layout.setCacheEnabled(true);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    painter.setClipRect(OnScreen(clip));
    const QPoint place = OnScreen(TwipsRect{left, top, 0, 0}).topLeft();
    DrawOutlined(painter, outline, color,
                 [&](const QPoint& offset) { layout.draw(&painter, place + offset); });
}

void DrawingSurface::FillRect(Argb color, const TwipsRect& rect) {
    QPainter painter;
    if (Begin(painter, image_, mode_))
        painter.fillRect(OnScreen(rect), QColor::fromRgba(color));
}

void DrawingSurface::DrawOutline(Argb color, const TwipsRect& rect) {
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    const QRect outer = OnScreen(rect);
    const int line = DeviceLength(1, ratio_);
    for (const QRect& side : {QRect(outer.left(), outer.top(), outer.width(), line),
                              QRect(outer.left(), outer.bottom() + 1 - line, outer.width(), line),
                              QRect(outer.left(), outer.top(), line, outer.height()),
                              QRect(outer.right() + 1 - line, outer.top(), line, outer.height())})
        painter.fillRect(side, QColor::fromRgba(color));
}

void DrawingSurface::ClearRect(const TwipsRect& rect) {
    mode_ = DrawMode::Clear;
    FillRect(0, rect);
}

void DrawingSurface::DrawCheckerBackdrop(const TwipsRect& rect, int cell) {
    if (cell < kTwipsPerPixel)
        return;
    for (int row = 0; row * cell < rect.Height; ++row) {
        for (int column = 0; column * cell < rect.Width; ++column) {
            const TwipsRect square{rect.Left + column * cell, rect.Top + row * cell,
                                   std::min(cell, rect.Width - column * cell),
                                   std::min(cell, rect.Height - row * cell)};
            FillRect((row + column) % 2 == 0 ? kLightCell : kDarkCell, square);
        }
    }
}

} // namespace paneda
