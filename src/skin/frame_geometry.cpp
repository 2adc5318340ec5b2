#include "skin/frame_geometry.h"

#include <algorithm>

namespace paneda {

namespace {

int Snap(int value) {
    return PixelsToTwips(TwipsToPixels(value));
}

// Of the place in the middle; a difference that is odd in pixels goes to the left and up.
int Centred(int room, int size) {
    const int spare = room - size;
    return Snap(spare >= 0 ? spare / 2 : (spare - 1) / 2);
}

int Positive(int value) {
    return std::max(value, 0);
}

// A piece in the centre of an edge has the filler's size where the skin has none.
TwipsSize CentreSize(const TwipsSize& piece, const TwipsSize& filler) {
    return piece.Width > 0 && piece.Height > 0 ? piece : filler;
}

void PlaceCorners(const PieceSizes& sizes, const TwipsSize& window, FrameGeometry& frame) {
    frame.TopLeft = {0, 0, sizes.TopLeft.Width, sizes.TopLeft.Height};
    frame.TopRight = {window.Width - sizes.TopRight.Width, 0, sizes.TopRight.Width, sizes.TopRight.Height};
    frame.BottomLeft = {0, window.Height - sizes.BottomLeft.Height, sizes.BottomLeft.Width,
                        sizes.BottomLeft.Height};
    frame.BottomRight = {window.Width - sizes.BottomRight.Width, window.Height - sizes.BottomRight.Height,
                         sizes.BottomRight.Width, sizes.BottomRight.Height};
}

void PlaceTop(const PieceSizes& sizes, const TwipsSize& window, FrameGeometry& frame) {
    const TwipsSize centre = CentreSize(sizes.Top, sizes.TopA);
    frame.Top = {Centred(window.Width, centre.Width), 0, centre.Width, centre.Height};
    frame.TopA = {sizes.TopLeft.Width, 0, Positive(window.Width - sizes.TopLeft.Width - sizes.TopRight.Width),
                  sizes.TopA.Height};
    if (sizes.HasTopB)
        frame.TopB = {frame.Top.Right(), 0, Positive(frame.TopRight.Left - frame.Top.Right()), centre.Height};
}

void PlaceBottom(const PieceSizes& sizes, const TwipsSize& window, FrameGeometry& frame) {
    const int inner = Positive(window.Width - sizes.LeftA.Width - sizes.RightA.Width);
    const int width = std::min(sizes.Bottom.Width, inner);
    const int height = sizes.Bottom.Height;
    const int top = window.Height - height;
    frame.Bottom = {std::max(Centred(window.Width, sizes.Bottom.Width), sizes.LeftA.Width), top, width,
                    height};
    frame.BottomA = {sizes.BottomLeft.Width, top,
                     Positive(window.Width - sizes.BottomLeft.Width - sizes.BottomRight.Width), height};
    if (sizes.HasBottomB)
        frame.BottomB = {frame.Bottom.Right(), top, Positive(frame.BottomRight.Left - frame.Bottom.Right()),
                         height};
}

void PlaceLeft(const PieceSizes& sizes, const TwipsSize& window, FrameGeometry& frame) {
    const TwipsSize centre = CentreSize(sizes.Left, sizes.LeftA);
    frame.Left = {0, Centred(window.Height, centre.Height), centre.Width, centre.Height};
    frame.LeftA = {0, sizes.TopLeft.Height, sizes.LeftA.Width,
                   Positive(window.Height - sizes.TopLeft.Height - sizes.BottomLeft.Height)};
    if (sizes.HasLeftB)
        frame.LeftB = {0, frame.Left.Bottom(), centre.Width,
                       Positive(frame.BottomLeft.Top - frame.Left.Bottom())};
}

void PlaceRight(const PieceSizes& sizes, const TwipsSize& window, FrameGeometry& frame) {
    const TwipsSize centre = CentreSize(sizes.Right, sizes.RightA);
    const int left = window.Width - sizes.RightA.Width;
    frame.Right = {left, Centred(window.Height, centre.Height), centre.Width, centre.Height};
    frame.RightA = {left, sizes.TopRight.Height, sizes.RightA.Width,
                    Positive(window.Height - sizes.TopRight.Height - sizes.BottomRight.Height)};
    if (sizes.HasRightB)
        frame.RightB = {left, frame.Right.Bottom(), centre.Width,
                        Positive(frame.BottomRight.Top - frame.Right.Bottom())};
}

TwipsRect OnBottom(const FrameGeometry& frame, const PixelArea& area) {
    return {frame.Bottom.Left + PixelsToTwips(area.Left), frame.Bottom.Top + PixelsToTwips(area.Top),
            PixelsToTwips(Positive(area.Right - area.Left)), PixelsToTwips(Positive(area.Bottom - area.Top))};
}

} // namespace

FrameGeometry DisplayBorder(const PieceSizes& sizes, const TwipsSize& window) {
    FrameGeometry frame;
    PlaceCorners(sizes, window, frame);
    PlaceTop(sizes, window, frame);
    PlaceBottom(sizes, window, frame);
    PlaceLeft(sizes, window, frame);
    PlaceRight(sizes, window, frame);
    frame.Inner = {frame.LeftA.Width, frame.TopA.Height, Positive(frame.RightA.Left - frame.LeftA.Width),
                   Positive(frame.BottomA.Top - frame.TopA.Height)};
    return frame;
}

TwipsRect HideArea(const FrameGeometry& frame, const ThemeState& theme) {
    return OnBottom(frame, theme.HideRect);
}

TwipsRect MenuArea(const FrameGeometry& frame, const ThemeState& theme) {
    return OnBottom(frame, theme.MenuRect);
}

TwipsRect LogoArea(const FrameGeometry& frame, const ThemeState& theme, const TwipsSize& logo) {
    return {frame.Bottom.Left + PixelsToTwips(theme.LogoLeft),
            frame.Bottom.Top + PixelsToTwips(theme.LogoTop), logo.Width, logo.Height};
}

} // namespace paneda
