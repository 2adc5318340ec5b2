#pragma once

#include "core/store/style_code.h"
#include "skin/button_layout.h"
#include "skin/drawing_surface.h"
#include "skin/font_choice.h"
#include "skin/theme_state.h"

#include <QString>
#include <QStringList>

namespace paneda {

// The label of one button: smoothed at 8 and 9 points, printed sharp at 6 and 7. It is drawn once and asked
// at once; nothing that it is made of may go before it.
class ButtonLabel {
public:
    // `box` is the button's, in twips. A style that shows no label makes an empty one.
    ButtonLabel(const ButtonStyle& style, QString caption, const TwipsRect& box, const ThemeState& theme,
                FontChoice& fonts);

    void Paint(DrawingSurface& surface) const;

    // Whether the button has no room for all of the text on a screen of this ratio. False for an empty label.
    bool IsCut(double ratio) const;

private:
    LabelStyle SmoothStyle() const;
    TwipsRect SmoothRoom() const;
    TextFont SharpFont() const;
    double SharpRoom() const;
    QStringList SharpLines(const TextFont& font, double ratio) const;
    void PaintSharp(DrawingSurface& surface) const;
    bool HasBorder() const { return IsSwitchedOn(theme_.LabelBorderOverride, style_.LabelBorder); }
    bool IsBold() const { return IsSwitchedOn(theme_.LabelBoldOverride, style_.LabelBold); }

    ButtonStyle style_;
    QString caption_;
    TwipsRect box_;
    const ThemeState& theme_;
    FontChoice& fonts_;
    ButtonLayout layout_;
    LabelFontChoice choice_;
};

} // namespace paneda
