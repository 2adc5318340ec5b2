#include "skin/image_scaling.h"

#include <algorithm>
#include <vector>

namespace paneda {

namespace {

// Where a target pixel is taken along one axis: two source pixels and the weight of the second, of 256.
struct Tap {
    int First = 0;
    int Second = 0;
    uint Weight = 0;
};

std::vector<Tap> MakeTaps(int part, int target, int limit) {
    std::vector<Tap> taps(static_cast<std::size_t>(target));
    for (int i = 0; i < target; ++i) {
        const qint64 position = qint64(i) * part * 256 / target;
        const int first = int(position / 256);
        taps[std::size_t(i)] = {first, std::min(first + 1, limit - 1), uint(position % 256)};
    }
    return taps;
}

uint Blend(uint a, uint b, uint weight) {
    const auto channel = [&](int shift) {
        return ((a >> shift & 0xFF) * (256 - weight) + (b >> shift & 0xFF) * weight + 128) >> 8 << shift;
    };
    return channel(24) | channel(16) | channel(8) | channel(0);
}

// `part` is the size that is spread over the target; the source may hold one pixel more on each axis.
QImage Grow(const QImage& source, const QSize& part, const QSize& target) {
    QImage grown(target, QImage::Format_ARGB32_Premultiplied);
    const std::vector<Tap> columns = MakeTaps(part.width(), target.width(), source.width());
    const std::vector<Tap> rows = MakeTaps(part.height(), target.height(), source.height());
    for (int y = 0; y < target.height(); ++y) {
        const Tap& row = rows[std::size_t(y)];
        const auto* upper = reinterpret_cast<const uint*>(source.constScanLine(row.First));
        const auto* lower = reinterpret_cast<const uint*>(source.constScanLine(row.Second));
        auto* line = reinterpret_cast<uint*>(grown.scanLine(y));
        for (const Tap& column : columns) {
            const uint above = Blend(upper[column.First], upper[column.Second], column.Weight);
            const uint below = Blend(lower[column.First], lower[column.Second], column.Weight);
            *line++ = Blend(above, below, row.Weight);
        }
    }
    return grown;
}

} // namespace

QImage ScalePart(const QImage& picture, const QRect& part, const QSize& target) {
    if (picture.isNull() || part.isEmpty() || target.isEmpty())
        return {};
    if (part.size() == target)
        return picture.copy(part);
    const bool wider = target.width() > part.width();
    const bool higher = target.height() > part.height();
    QRect taken = part;
    if (wider)
        taken.setRight(std::min(part.right() + 1, picture.width() - 1));
    if (higher)
        taken.setBottom(std::min(part.bottom() + 1, picture.height() - 1));
    QImage source = picture.copy(taken);
    const QSize shrunk(wider ? taken.width() : target.width(), higher ? taken.height() : target.height());
    if (shrunk != taken.size())
        source = source.scaled(shrunk, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                     .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (!wider && !higher)
        return source;
    const QSize spread(wider ? part.width() : target.width(), higher ? part.height() : target.height());
    return Grow(source, spread, target);
}

QImage Resample(const QImage& picture, const QRect& part, const QSize& target) {
    return picture.copy(part)
        .scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace paneda
