#include "skin/drive_painter.h"

#include "core/panel/launch.h"
#include "core/text/text_rules.h"
#include "skin/font_size.h"

#include <algorithm>

namespace paneda {

namespace {

constexpr double kGigabyte = 1024.0 * 1024.0 * 1024.0;
constexpr int kTextSize = 6;        // points
constexpr int kSecondLineTop = 150; // this and all below in twips, from the button's corner
constexpr int kLetterTop = 350;
constexpr TwipsRect kBarOutline{150, 380, 310, 70};
constexpr TwipsRect kBarFill{160, 400, 300, 30};

// A part of a button as it lies on the panel, both of its corner pixels included.
TwipsRect PartOf(const TwipsRect& box, const TwipsRect& part) {
    const int left = TwipsToPixels(box.Left + part.Left);
    const int top = TwipsToPixels(box.Top + part.Top);
    const int right = TwipsToPixels(box.Left + part.Right());
    const int bottom = TwipsToPixels(box.Top + part.Bottom());
    return {PixelsToTwips(left), PixelsToTwips(top), PixelsToTwips(right - left + 1),
            PixelsToTwips(bottom - top + 1)};
}

void DrawBar(DrawingSurface& surface, const TwipsRect& box, const DriveInfo& info, const ThemeState& theme) {
    if (info.TotalBytes != 0 && info.FreeBytes != 0) {
        const double share = std::min(double(info.FreeBytes) / double(info.TotalBytes), 1.0);
        TwipsRect fill = kBarFill;
        fill.Width = int(fill.Width * share);
        // It begins under the outline, which is drawn over it, so that no gap is left at any ratio.
        const TwipsRect shown = PartOf(box, fill);
        const int top = PartOf(box, kBarOutline).Top;
        surface.FillRect(ColorToArgb(theme.DriveBarFreeColor, 255),
                         {shown.Left, top, shown.Width, shown.Bottom() - top});
    }
    surface.DrawOutline(ColorToArgb(theme.DriveBarBorderColor, 255), PartOf(box, kBarOutline));
}

} // namespace

std::vector<PlacedDrive> DriveButtonsOf(const CatalogueList& catalogue, const PanelGeometry& geometry,
                                        const QString& appPath) {
    std::vector<PlacedDrive> drives;
    if (catalogue.empty() || geometry.Categories.empty())
        return drives;
    const OpenedCategory opened = OpenCategory(geometry, 0);
    for (const auto& [group, index] : opened.Buttons) {
        const ButtonEntry& button = catalogue.front().Groups[std::size_t(group)].Buttons[std::size_t(index)];
        const ButtonGeometry& placed =
            geometry.Categories.front().Groups[std::size_t(group)].Buttons[std::size_t(index)];
        if (!button.Spare.isEmpty())
            drives.push_back({button.ControlIndex, DriveText(button, appPath), placed.Rect});
    }
    return drives;
}

QString DriveToolTip(const QString& drive, const DriveInfo& info) {
    const QString label = info.Label.isEmpty() ? QString() : u'(' + info.Label + u')';
    QString share = QStringLiteral("-");
    if (info.TotalBytes != 0)
        share =
            QString::number(RoundHalfEven(100.0 * double(info.FreeBytes) / double(info.TotalBytes))) + u'%';
    return drive + label + QStringLiteral(" Free ") + share;
}

QString GigabytesText(quint64 bytes) {
    const double gigabytes = double(bytes) / kGigabyte;
    const int decimals = gigabytes < 10 ? 3 : gigabytes < 100 ? 2 : 1;
    return QString::number(gigabytes, 'f', decimals);
}

void DrawDrive(DrawingSurface& surface, const PlacedDrive& button, const DriveInfo& info, PaintTools& tools) {
    const ThemeState& theme = tools.Theme;
    TextFont font;
    font.Family = tools.Fonts.Family(QStringLiteral("Small Fonts"));
    font.EmSize = PrintedPixelSize(kTextSize);
    font.Bold = true;
    font.AntiAlias = false;
    font.SmoothOnceLarge = true;
    const TwipsRect& box = button.Box;
    const auto print = [&](const QString& text, int top, const SkinColor& color) {
        surface.PrintLine(text, box.Left, box.Top + top, box, font, ColorToArgb(color.Color, 255));
    };
    if (info.TotalBytes != 0 && info.FreeBytes != 0)
        print(GigabytesText(info.FreeBytes), 0, theme.DriveFreeColor);
    if (info.TotalBytes == 0)
        print(QStringLiteral("N/A"), kSecondLineTop, theme.DriveNaColor);
    else
        print(GigabytesText(info.TotalBytes), kSecondLineTop, theme.DriveCapacityColor);
    DrawBar(surface, box, info, theme);
    print(button.Drive.left(1), kLetterTop, theme.DriveLetterColor);
}

} // namespace paneda
