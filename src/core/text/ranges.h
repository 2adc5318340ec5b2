#pragma once

#include "core/text/twips.h"

namespace paneda {

// The ranges of the numbers in files. A file of a store may have been written by anybody, so that each number
// is held to its range where it is read. Whatever is computed from it afterwards has room in an int.
template <class Number>
struct Range {
    Number Lowest;
    Number Highest;

    // False for NaN.
    constexpr bool Holds(Number value) const { return value >= Lowest && value <= Highest; }

    // The value, or the end of the range that is nearer to it. NaN counts as the lowest.
    constexpr Number Nearest(Number value) const {
        if (value > Highest)
            return Highest;
        return value >= Lowest ? value : Lowest;
    }

    // For a number that chooses: no other choice is nearer to it than the usual one.
    constexpr Number Or(Number value, Number usual) const { return Holds(value) ? value : usual; }
};

namespace range {

// The places and sides of windows have 16 bits with a sign in the X protocol; Windows shows no larger ones.
inline constexpr int kMostPixels = 32'767;
inline constexpr Range<int> kPlace{-PixelsToTwips(kMostPixels), PixelsToTwips(kMostPixels)}; // twips
inline constexpr Range<int> kSide{0, PixelsToTwips(kMostPixels)};                            // twips

// Pictures of a skin with more pixels on a side are not loaded.
inline constexpr int kPictureSide = 4096;

// config. One button and the gap behind it are 36 pixels wide.
inline constexpr Range<double> kButtonsPerRow{0.5, kMostPixels / 36};
inline constexpr Range<double> kFeedHeight{0, 10'000}; // pixels; stored, without effect
inline constexpr Range<int> kMouseTriggerMode{1, 2};
inline constexpr Range<int> kVirtualKey{0, 254}; // one byte in Windows, where 255 is no key

// setting.ini
inline constexpr Range<int> kCategoryNumber{1, kMostPixels}; // more bars than the highest window has pixels
inline constexpr Range<int> kTrayIcon{1, 12};                // pictures that come with the program
inline constexpr Range<double> kOpacity{0.01, 1};            // whole percents
inline constexpr Range<int> kRecentDays{0, 36'500};          // a century
inline constexpr Range<int> kNoteSide{500, kMostPixels};     // pixels; what the note's controls need
inline constexpr Range<int> kCompressSize{0, 1024 * 1024};   // kilobytes: a gigabyte
inline constexpr Range<int> kCountdownIcons{1, 3};
inline constexpr Range<int> kMessageIcons{0, 10};
inline constexpr Range<int> kMessageStyle{1, 3};
inline constexpr Range<int> kSwitch{0, 1};

// skin.ini, and the note's font: what can be read and what fills a panel. Points.
inline constexpr Range<double> kFontSize{1, 200};
// Pixels on the bottom picture.
inline constexpr Range<int> kOnBottom{-kPictureSide, kPictureSide};
// Pixels. Smaller than the lowest counts as the usual height.
inline constexpr Range<int> kMessageHeight{115, kMostPixels};

// Properties.ini of a note: its window, in pixels.
inline constexpr Range<int> kNoteWindow{1, kMostPixels};

// Cache
inline constexpr Range<int> kPiece{0, PixelsToTwips(kPictureSide)}; // twips
// Categories, groups and buttons together: ten times the largest store that the program is measured with.
inline constexpr Range<int> kEntries{0, 100'000};
// Bytes of a name: 255 characters are the most on every file system, each of at most three bytes.
inline constexpr Range<int> kNameBytes{0, 3 * 255};

} // namespace range

} // namespace paneda
