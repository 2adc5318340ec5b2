#pragma once

#include <QString>
#include <QStringView>

namespace paneda {

// A button's look, decoded from the style code in its file name. Each field is one character of the code; a
// code that ends early leaves the rest empty.
struct ButtonStyle {
    enum class IconSize { None, Big, Small };
    enum class LabelPlace { RightOfIcon, LeftOfIcon, Overlap, Unset };

    QChar Width;  // null if the code has none
    QChar Height; // null if the code has none
    // Big is 32 pixels, Small 16. The layout leaves room for an icon of this size even where DrawIcon is
    // false.
    IconSize Icon = IconSize::Big;
    bool DrawIcon = false;
    int IconAlignment = 1; // 1 to 9, rows of three from top left
    int LabelFont =
        4; // 1 and 2 are the small fonts of size 6 and 7, 3 and 4 the normal ones of 8 and 9 points
    bool LabelBorder = false;
    bool LabelBold = false;
    LabelPlace LabelPosition = LabelPlace::Unset;
    int LabelAlignment = 1; // as IconAlignment
    bool LabelOn = false;
    bool Background = false;

    bool IsHalfHeight() const { return Height == u'0'; }
};

ButtonStyle DecodeStyle(QStringView code);

// Width of a full-size unit, the gap between two, and the step from one to the next, in twips.
inline constexpr int kUnit = 480;
inline constexpr int kUnitGap = 60;
inline constexpr int kUnitStep = kUnit + kUnitGap;
inline constexpr int kHalfUnit = 240;

// Width of a button in units, from the first character of its style code, at most `cap` units. Never 0: half
// a unit is the least.
double ButtonWidthUnits(QStringView code, double cap);

// The same width in twips: several units fill the gaps between them.
int ButtonWidthTwips(QStringView code, double cap);

// 240 for a half-height button, else 480.
int ButtonHeight(QStringView code);

} // namespace paneda
