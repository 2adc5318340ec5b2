#include "ui/panel/window_shape.h"

#include <QList>

namespace paneda {

namespace {

// The visible runs of pixels in one row, as rectangles of height 1.
QList<QRect> RunsOf(const QRgb* row, int width, int y, int minAlpha) {
    QList<QRect> runs;
    for (int x = 0; x < width; ++x) {
        const int begin = x;
        while (x < width && qAlpha(row[x]) >= minAlpha)
            ++x;
        if (x > begin)
            runs.append(QRect(begin, y, x - begin, 1));
    }
    return runs;
}

bool SameRuns(const QList<QRect>& a, const QList<QRect>& b) {
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (a[i].left() != b[i].left() || a[i].width() != b[i].width())
            return false;
    }
    return true;
}

} // namespace

QRegion ShapeOf(const QImage& picture, int minAlpha) {
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QList<QRect> rects;
    QList<QRect> band;
    for (int y = 0; y < image.height(); ++y) {
        const QList<QRect> runs =
            RunsOf(reinterpret_cast<const QRgb*>(image.constScanLine(y)), image.width(), y, minAlpha);
        if (!band.isEmpty() && SameRuns(runs, band)) {
            // Equal rows are joined: QRegion takes only rectangles that are as tall as possible.
            for (QRect& rect : band)
                rect.setBottom(y);
            continue;
        }
        rects += band;
        band = runs;
    }
    rects += band;
    QRegion region;
    region.setRects(rects.constData(), int(rects.size()));
    return region;
}

} // namespace paneda
