#include "skin/button_layout.h"

#include "skin/alignment.h"

#include <algorithm>
#include <cmath>

namespace paneda {

namespace {

using LabelPlace = ButtonStyle::LabelPlace;

constexpr int kIconGap = 2; // pixels between icon and sharp label
constexpr int kNoRoom = 15; // twips that are left beside an icon at the button's own edge

int PixelsOf(ButtonStyle::IconSize size) {
    switch (size) {
    case ButtonStyle::IconSize::None:
        return 0;
    case ButtonStyle::IconSize::Small:
        return 16;
    case ButtonStyle::IconSize::Big:
        break;
    }
    return 32;
}

double Start(double room, int icon, int third) {
    const double spare = room - icon;
    return std::max(third == 0 ? 0 : third == 1 ? spare / 2 : spare, 0.0);
}

int Twips(double pixels) {
    return int(std::floor(pixels * kTwipsPerPixel));
}

void PlaceLabel(const ButtonStyle& style, int width, ButtonLayout& layout) {
    const Column column = AlignColumn(style.IconAlignment);
    const int iconRight = Twips(layout.IconPixels + layout.IconLeft);
    if (style.LabelPosition == LabelPlace::Overlap) {
        layout.LabelWidth = width;
    } else if (style.LabelPosition == LabelPlace::RightOfIcon) {
        layout.LabelLeft = column == Column::Right ? width : iconRight;
        layout.LabelWidth = column == Column::Right ? kNoRoom : width - iconRight;
    } else if (style.LabelPosition == LabelPlace::LeftOfIcon) {
        if (column == Column::Left)
            layout.LabelWidth = kNoRoom;
        else if (column == Column::Centre)
            layout.LabelWidth = Twips(layout.IconLeft);
        else
            layout.LabelWidth = width - PixelsToTwips(layout.IconPixels);
    }
}

int IndentOf(const ButtonStyle& style, int width, const ButtonLayout& layout) {
    if (style.LabelPosition == LabelPlace::RightOfIcon)
        return Twips(layout.IconPixels + layout.IconLeft + kIconGap);
    if (style.LabelPosition == LabelPlace::LeftOfIcon && layout.IconPixels != 0)
        return width - Twips(layout.IconLeft - kIconGap);
    return 0;
}

} // namespace

ButtonLayout LayOutButton(const ButtonStyle& style, const TwipsSize& size) {
    ButtonLayout layout;
    layout.IconPixels = PixelsOf(style.Icon);
    const auto pixels = [](int twips) { return double(twips) / kTwipsPerPixel; };
    layout.IconLeft = Start(pixels(size.Width), layout.IconPixels, (style.IconAlignment - 1) % 3);
    layout.IconTop = Start(pixels(size.Height), layout.IconPixels, (style.IconAlignment - 1) / 3);
    PlaceLabel(style, size.Width, layout);
    layout.LabelIndent = IndentOf(style, size.Width, layout);
    return layout;
}

LabelFontChoice ChooseLabelFont(const ButtonStyle& style) {
    LabelFontChoice font;
    if (style.LabelFont == 1)
        font = {u"Small Fonts", 6, 10, 3};
    else if (style.LabelFont == 2)
        font = {u"Small Fonts", 7, 11, 3};
    else if (style.LabelFont == 3)
        font.Points = 8;
    if (style.IsHalfHeight())
        font.MaxLines = 1;
    return font;
}

LinePlace PlaceLine(const ButtonStyle& style, const ButtonLayout& layout, const TwipsSize& size,
                    int lineWidth, int line, int lineCount) {
    const int lineHeight = PixelsToTwips(ChooseLabelFont(style).LineHeight);
    const double spareX = size.Width - lineWidth - layout.LabelIndent;
    const double spareY = size.Height - lineCount * lineHeight;
    const Column column = AlignColumn(style.LabelAlignment);
    const Row row = AlignRow(style.LabelAlignment);
    // Of a line that is too wide the beginning says most.
    double x = column == Column::Left ? 0 : std::max(column == Column::Centre ? spareX / 2 : spareX, 0.0);
    const double y = row == Row::Top ? 0 : row == Row::Centre ? spareY / 2 : spareY;
    if (style.LabelPosition == LabelPlace::RightOfIcon)
        x += layout.LabelIndent;
    return {int(std::trunc(x)), int(std::trunc(y + line * lineHeight))};
}

} // namespace paneda
