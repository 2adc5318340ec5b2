#pragma once

#include "core/panel/panel_geometry.h"
#include "core/store/catalogue_cache.h"
#include "core/text/twips.h"
#include "skin/theme_state.h"

namespace paneda {

// Sizes of a skin's pictures that the frame and the panel are laid out by, in twips. A picture that is
// missing or cannot be loaded is empty, but for the two that must have a height.
struct PieceSizes {
    TwipsSize Group;    // of a group's header
    TwipsSize Category; // of a category's bar
    TwipsSize Bottom;
    TwipsSize TopA;
    TwipsSize LeftA;
    TwipsSize RightA;
    TwipsSize TopLeft;
    TwipsSize TopRight;
    TwipsSize BottomLeft;
    TwipsSize BottomRight;

    // Pieces that a frame may lack.
    TwipsSize Top;
    TwipsSize Left;
    TwipsSize Right;
    bool HasTopB = false;
    bool HasBottomB = false;
    bool HasLeftB = false;
    bool HasRightB = false;
};

// Heights of a header and a bar whose picture is missing: their titles still need room.
inline constexpr int kBareGroupHeight = 240;
inline constexpr int kBareBarHeight = 300;

// Reads the headers of the skin's pictures.
PieceSizes MeasurePieces(const ThemeState& theme);

// The sizes that the cache keeps, without those of pieces that a frame may lack: enough to lay out a panel
// whose pictures are on file.
PieceSizes PieceSizesOf(const CacheRecord& record);
void StorePieceSizes(const PieceSizes& sizes, CacheRecord& record);

// Inner margins of the frame.
FrameMargins GetBorderMargin(const PieceSizes& sizes);

// What the skin gives to the layout of the panel.
PanelMetrics PanelMetricsOf(const PieceSizes& sizes);

} // namespace paneda
