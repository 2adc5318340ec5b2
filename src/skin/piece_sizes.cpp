#include "skin/piece_sizes.h"

#include "core/text/ranges.h"
#include "skin/picture_files.h"
#include "skin/picture_loader.h"

#include <QFileInfo>

namespace paneda {

static_assert(kMaxPictureSide <= range::kPictureSide, "the cache would refuse the piece");

PieceSizes MeasurePieces(const ThemeState& theme) {
    const SkinPieces& pieces = theme.Pieces;
    const auto size = [&theme](const QString& piece) { return ImageSizeTwips(theme.PathOf(piece)); };
    const auto exists = [&theme](const QString& piece) { return QFileInfo::exists(theme.PathOf(piece)); };
    PieceSizes sizes;
    sizes.Group = size(pieces.Group);
    sizes.Category = size(pieces.Category);
    sizes.Bottom = size(pieces.Bottom);
    sizes.TopA = size(pieces.TopA);
    sizes.LeftA = size(pieces.LeftA);
    sizes.RightA = size(pieces.RightA);
    sizes.TopLeft = size(pieces.TopLeft);
    sizes.TopRight = size(pieces.TopRight);
    sizes.BottomLeft = size(pieces.BottomLeft);
    sizes.BottomRight = size(pieces.BottomRight);
    sizes.Top = size(pieces.Top);
    sizes.Left = size(pieces.Left);
    sizes.Right = size(pieces.Right);
    sizes.HasTopB = exists(pieces.TopB);
    sizes.HasBottomB = exists(pieces.BottomB);
    sizes.HasLeftB = exists(pieces.LeftB);
    sizes.HasRightB = exists(pieces.RightB);
    if (sizes.Group.Height == 0)
        sizes.Group.Height = kBareGroupHeight;
    if (sizes.Category.Height == 0)
        sizes.Category.Height = kBareBarHeight;
    return sizes;
}

FrameMargins GetBorderMargin(const PieceSizes& sizes) {
    return {sizes.TopA.Height, sizes.LeftA.Width, sizes.Bottom.Height, sizes.RightA.Width};
}

PanelMetrics PanelMetricsOf(const PieceSizes& sizes) {
    return {GetBorderMargin(sizes), sizes.Group.Height, sizes.Category.Height};
}

} // namespace paneda
