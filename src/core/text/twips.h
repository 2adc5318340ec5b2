#pragma once

#include <QRect>

namespace paneda {

// Screen measures are twips; 15 of them are one pixel on every screen.
inline constexpr int kTwipsPerPixel = 15;

// Whole pixels of a measure in twips, rounded towards minus infinity.
constexpr int TwipsToPixels(int twips) {
    const int quotient = twips / kTwipsPerPixel;
    return twips % kTwipsPerPixel < 0 ? quotient - 1 : quotient;
}

constexpr int PixelsToTwips(int pixels) {
    return pixels * kTwipsPerPixel;
}

// A rectangle in twips.
struct TwipsRect {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    int Right() const { return Left + Width; }
    int Bottom() const { return Top + Height; }

    friend bool operator==(const TwipsRect&, const TwipsRect&) = default;
};

// A size in twips.
struct TwipsSize {
    int Width = 0;
    int Height = 0;

    friend bool operator==(const TwipsSize&, const TwipsSize&) = default;
};

// Left, top, width and height are converted separately, each rounded down.
inline QRect ToPixels(const TwipsRect& rect) {
    return {TwipsToPixels(rect.Left), TwipsToPixels(rect.Top), TwipsToPixels(rect.Width),
            TwipsToPixels(rect.Height)};
}

} // namespace paneda
