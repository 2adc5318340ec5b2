#include "skin/piece_sizes.h"

#include "core/text/ranges.h"
#include "skin/picture_loader.h"
#include "skin/skin_pictures.h"

namespace paneda {

static_assert(kMaxPictureSide <= range::kPictureSide, "the cache would refuse the piece");

PieceSizes MeasurePieces(const ThemeState& theme) {
    const SkinPieces& pieces = theme.Pieces;
    const QHash<QString, QSize> usable = SurveyPieces(theme).Usable;
    const auto size = [&usable](const QString& piece) {
        const QSize pixels = usable.value(piece, QSize(0, 0));
        return TwipsSize{PixelsToTwips(pixels.width()), PixelsToTwips(pixels.height())};
    };
    const auto exists = [&usable](const QString& piece) { return usable.contains(piece); };
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
