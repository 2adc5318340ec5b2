#pragma once

#include "skin/button_sources.h"
#include "skin/decoded_pictures.h"
#include "skin/drawing_surface.h"
#include "skin/font_choice.h"
#include "skin/theme_state.h"

#include <QString>

#include <optional>

namespace paneda {

// What every painter of one composition draws with. It reads each picture of the skin once, so each
// composition needs a new one.
struct PaintTools {
    PaintTools(const ThemeState& theme, FontChoice& fonts) : Theme(theme), Fonts(fonts) {}

    // A piece of the skin; null if it is missing.
    QImage Piece(const QString& name) { return Pictures.Get(Theme.PathOf(name)); }

    const ThemeState& Theme;
    FontChoice& Fonts;
    DecodedPictures Pictures;
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
