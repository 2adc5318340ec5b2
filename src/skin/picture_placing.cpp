#include "skin/picture_placing.h"

#include "skin/alignment.h"

#include <algorithm>

namespace paneda {

namespace {

constexpr QStringView kOriginalSize = u"original size";
constexpr QStringView kStretch = u"stretch";
constexpr QStringView kStretchProportional = u"stretch proportional";

int HalfDown(int value) {
    return value >= 0 ? value / 2 : (value - 1) / 2;
}

int ColumnOffset(int spare, Column column) {
    if (column == Column::Left)
        return 0;
    return column == Column::Centre ? HalfDown(spare) : spare;
}

int RowOffset(int spare, Row row) {
    if (row == Row::Top)
        return 0;
    return row == Row::Centre ? HalfDown(spare) : spare;
}

// A source that grows ends one pixel early: the last one is reached by blending.
int GrowingSource(int source, int target) {
    return source < target ? std::max(source - 1, 1) : source;
}

PicturePlace PlaceOriginal(const QSize& picture, const QRect& box, const QString& alignment) {
    const int x = ColumnOffset(picture.width() - box.width(), AlignColumn(alignment));
    const int y = RowOffset(picture.height() - box.height(), AlignRow(alignment));
    return {{{x, y}, box.size()}, box};
}

PicturePlace PlaceStretched(const QSize& picture, const QRect& box) {
    return {
        {0, 0, GrowingSource(picture.width(), box.width()), GrowingSource(picture.height(), box.height())},
        box};
}

// Stretched until it covers the box and no further: the picture is cut on the axis where it has too much.
PicturePlace PlaceStretchedProportional(const QSize& picture, const QRect& box, const QString& alignment) {
    QRect source({0, 0}, picture);
    const qint64 boxSide = qint64(box.width()) * picture.height();
    const qint64 pictureSide = qint64(picture.width()) * box.height();
    if (boxSide < pictureSide) {
        const int width = int((boxSide + box.height() - 1) / box.height());
        source.setLeft(ColumnOffset(picture.width() - width, AlignColumn(alignment)));
        source.setWidth(width);
    } else {
        const int height = int((pictureSide + box.width() - 1) / box.width());
        source.setTop(RowOffset(picture.height() - height, AlignRow(alignment)));
        source.setHeight(height);
    }
    source.setWidth(GrowingSource(source.width(), box.width()));
    source.setHeight(GrowingSource(source.height(), box.height()));
    return {source, box};
}

// Shows the whole picture, centred on the axis where room is left.
PicturePlace PlaceLetterboxed(const QSize& picture, const QRect& box) {
    QRect target = box;
    const int width = picture.width();
    const int height = picture.height();
    if (width < height) {
        target.setWidth(std::max(int(qint64(box.width()) * width / height), 1));
        target.moveLeft(box.left() + int(qint64(box.width()) * (height - width) / (2 * height)));
    } else if (width > height) {
        target.setHeight(std::max(int(qint64(box.height()) * height / width), 1));
        target.moveTop(box.top() + int(qint64(box.height()) * (width - height) / (2 * width)));
    }
    return {{{0, 0}, picture}, target};
}

} // namespace

PicturePlace PlacePicture(const QSize& picture, const QRect& box, const PictureDrawing& drawing) {
    if (drawing.Method == kOriginalSize)
        return PlaceOriginal(picture, box, drawing.Alignment);
    if (drawing.Method == kStretch)
        return PlaceStretched(picture, box);
    if (drawing.Method == kStretchProportional)
        return PlaceStretchedProportional(picture, box, drawing.Alignment);
    return PlaceLetterboxed(picture, box);
}

bool KeepsSize(const PictureDrawing& drawing) {
    return drawing.Method == kOriginalSize;
}

bool IsTiled(const PictureDrawing& drawing) {
    return !drawing.Fit && drawing.Method != kOriginalSize && drawing.Method != kStretch &&
           drawing.Method != kStretchProportional;
}

} // namespace paneda
