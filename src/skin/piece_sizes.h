#pragma once

#include "core/panel/panel_geometry.h"
#include "core/store/catalogue_cache.h"
#include "core/text/twips.h"
#include "skin/theme_state.h"

namespace paneda {

// Heights of a header and a bar whose picture is missing: their titles still need room.
inline constexpr int kBareGroupHeight = 240;
inline constexpr int kBareBarHeight = 300;

// Reads the files of the skin's pictures. One that is left out is as one that is missing.
PieceSizes MeasurePieces(const ThemeState& theme);

// Inner margins of the frame.
FrameMargins GetBorderMargin(const PieceSizes& sizes);

// What the skin gives to the layout of the panel.
PanelMetrics PanelMetricsOf(const PieceSizes& sizes);

} // namespace paneda
