#pragma once

#include "skin/button_sources.h"
#include "skin/drawing_surface.h"
#include "skin/font_choice.h"
#include "skin/skin_pictures.h"
#include "skin/theme_state.h"

#include <QString>

#include <optional>

namespace paneda {

// What every painter of one composition draws with. It reads each picture of the skin once, so each
// composition needs a new one.
struct PaintTools {
    // `canvas` is what is composed: of no piece more than its size is kept.
    PaintTools(const ThemeState& theme, FontChoice& fonts, const Canvas& canvas = {},
               const TickSource& ticks = ProcessorTick)
        : Theme(theme), Fonts(fonts), Pictures(theme, canvas, ticks) {}

    // A piece of the skin, tiled or at its own size; null if it is missing.
    DensePicture Piece(const QString& name) { return Pictures.Get(name); }

    const ThemeState& Theme;
    FontChoice& Fonts;
    SkinPictures Pictures;
};

struct ButtonSpec {
    QString Style;
    QString Target; // path of the button's file in the stored form; empty for no icon
    QString Caption;
    int Left = 0;                   // twips
    int Top = 0;                    // twips
    bool LimitWidth = true;         // to ButtonsPerRow
    bool PreviewWallpaper = false;  // the skin's back piece behind a button without solid background
    std::optional<Argb> Background; // solid, instead of what the skin has
};

// Size of a button in twips.
TwipsSize ButtonSize(const ButtonSpec& button, const ButtonSources& sources);

// Paints a button: background, picture, label.
void PaintButton(DrawingSurface& surface, const ButtonSpec& button, PaintTools& tools,
                 ButtonSources& sources);

} // namespace paneda
