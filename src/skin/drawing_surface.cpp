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

DrawingSurface::DrawingSurface(const QSize& pixels) {
    if (pixels.isEmpty())
        return;
    image_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    image_.fill(0);
}

DrawingSurface::DrawingSurface(QImage image)
    : image_(std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied)) {}

void DrawingSurface::DrawPicture(const QImage& picture, const TwipsRect& box, const PictureDrawing& drawing) {
    const QRect target = ToPixels(box);
    if (picture.isNull() || target.isEmpty())
        return;
    mode_ = drawing.Mode;
    if (IsTiled(drawing)) {
        Tile(picture, target);
        return;
    }
    const PicturePlace place = PlacePicture(picture.size(), target, drawing);
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

void DrawingSurface::Tile(const QImage& picture, const QRect& box) {
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    painter.setBrushOrigin(box.topLeft());
    painter.fillRect(box, QBrush(picture));
}

void DrawingSurface::DrawPictureAt(const QImage& picture, int left, int top, DrawMode mode) {
    mode_ = mode;
    QPainter painter;
    if (!picture.isNull() && Begin(painter, image_, mode))
        painter.drawImage(QPoint(TwipsToPixels(left), TwipsToPixels(top)), picture);
}

void DrawingSurface::DrawIcon(const QImage& icon, const TwipsRect& box) {
    mode_ = DrawMode::Over;
    const QRect target = ToPixels(box);
    QPainter painter;
    if (icon.isNull() || target.isEmpty() || !Begin(painter, image_, mode_))
        return;
    painter.drawImage(target.topLeft(), icon, QRect({0, 0}, target.size()));
}

void DrawingSurface::DrawLabel(const QString& text, const TwipsRect& box, const LabelStyle& style) {
    mode_ = DrawMode::Over;
    const SmoothLabel layout(text, ToPixels(box), style);
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    painter.setClipRect(layout.Clip());
    if (style.Border) {
        painter.setPen(QColor::fromRgba(style.BorderColor));
        for (const QPoint& offset : kOutline)
            layout.Draw(painter, offset);
    }
    painter.setPen(QColor::fromRgba(style.Color));
    layout.Draw(painter, {});
}

void DrawingSurface::PrintLine(const QString& text, int left, int top, const TwipsRect& clip,
                               const TextFont& font, Argb color, std::optional<Argb> outline) {
    mode_ = DrawMode::Over;
    QTextLayout layout(text, MakeFont(font));
    layout.setCacheEnabled(true);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QPainter painter;
    if (!Begin(painter, image_, mode_))
        return;
    painter.setClipRect(ToPixels(clip));
    const QPoint place(TwipsToPixels(left), TwipsToPixels(top));
    if (outline) {
        painter.setPen(QColor::fromRgba(*outline));
        for (const QPoint& offset : kOutline)
            layout.draw(&painter, place + offset);
    }
    painter.setPen(QColor::fromRgba(color));
    layout.draw(&painter, place);
}

void DrawingSurface::FillRect(Argb color, const TwipsRect& rect) {
    QPainter painter;
    if (Begin(painter, image_, mode_))
        painter.fillRect(ToPixels(rect), QColor::fromRgba(color));
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
