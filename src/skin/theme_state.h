#pragma once

#include "core/disk/disk_path.h"
#include "skin/colour.h"
#include "skin/key_colour.h"
#include "skin/picture_placing.h"
#include "skin/skin_pieces.h"

#include <QString>

#include <optional>

namespace paneda {

// A colour with the text it was read from, which is empty for a key that the skin lacks.
struct SkinColor {
    ColorRef Color = 0;
    QString Hex;
};

struct SkinFont {
    double Size = 8; // points
    bool Bold = true;
    bool AntiAlias = true;
    QString Name; // as the skin has it; FontChoice turns it into an installed family when it is painted with
    QString Alignment;
};

// A rectangle in pixels, measured on the skin's bottom picture.
struct PixelArea {
    int Top = 0;
    int Left = 0;
    int Bottom = 0;
    int Right = 0;

    friend bool operator==(const PixelArea&, const PixelArea&) = default;
};

// The look of the current skin. Made from its skin.ini at each load, not changed afterwards.
struct ThemeState {
    // Host folder of the skin, with a separator at its end.
    QString SkinPath;
    int LogoDesign = 1; // 1 to 11

    SkinColor CategoryActiveColor;
    SkinColor CategoryInactiveColor;
    SkinColor GroupColor;
    QString ButtonBackHex;
    std::optional<ColorRef> ButtonBackColor; // nothing: buttons have no solid background
    Argb ButtonBackArgb = 0;
    DrawMode GroupDrawMode = DrawMode::Over;
    DrawMode CategoryDrawMode = DrawMode::Over;
    DrawMode ButtonDrawMode = DrawMode::Over;
    QString BackAlignment;
    QString BackMethod;
    SkinFont GroupFont;
    SkinFont CategoryActiveFont;
    SkinFont CategoryInactiveFont;

    // "YES" and "NO" overrule the button's style, anything else leaves it in charge.
    QString ButtonBackOverride;
    QString LabelBoldOverride;
    QString LabelBorderOverride;

    PixelArea HideRect;
    PixelArea MenuRect;
    int LogoTop = 0;       // pixels, on the bottom picture
    int LogoLeft = 0;      // pixels
    int MessageHeight = 0; // twips

    SkinColor DriveFreeColor;
    SkinColor DriveCapacityColor;
    SkinColor DriveNaColor;
    SkinColor DriveLetterColor;
    ColorRef LabelColor = 0;
    QString LabelHex;
    std::optional<ColorRef> LabelBorderColor; // nothing counts as black
    QString LabelBorderHex;
    QString LabelFontName;
    bool LabelAntiAlias = true;
    KeyColour Key;
    ColorRef DriveBarBorderColor = 0;
    ColorRef DriveBarFreeColor = 0;

    SkinPieces Pieces;

    // The file of a piece. Links are refused, so that no file outside of the folder is shown.
    DiskPath PathOf(const QString& piece) const { return DiskPath::Below(SkinPath, SkinPath + piece); }
};

// Colours of the tree view, texts RRGGBB, never empty.
struct TreeColors {
    QString Background;
    QString Label;
    QString Highlight;
    QString HighlightLabel;
};

// Whether a skin's override ("YES", "NO") or else the button's own switch turns a feature on.
inline bool IsSwitchedOn(const QString& skinOverride, bool own) {
    if (skinOverride == u"YES")
        return true;
    return skinOverride == u"NO" ? false : own;
}

} // namespace paneda
