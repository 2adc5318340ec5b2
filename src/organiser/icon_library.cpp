#include "organiser/icon_library.h"

#include "core/files/file_io.h"
#include "core/store/names.h"

#include <algorithm>
#include <cstdlib>

namespace paneda {

namespace {

constexpr int kMargin = 60;
constexpr int kLabelOffset = 300; // from a thumbnail's left to its caption
constexpr int kStep = 450;        // from one thumbnail to the next, without the caption between them

// The nearest icon in the row at this height, -1 if there is no such row.
int NearestInRow(const IconSheet& sheet, int top, int left) {
    int nearest = -1;
    for (int i = 0; i < int(sheet.Icons.size()); ++i) {
        const TwipsRect& icon = sheet.Icons[std::size_t(i)];
        if (icon.Top != top)
            continue;
        if (nearest < 0 ||
            std::abs(icon.Left - left) < std::abs(sheet.Icons[std::size_t(nearest)].Left - left))
            nearest = i;
    }
    return nearest;
}

} // namespace

QString TooManyIconsText() {
    return QStringLiteral("More than 1200 icons found in this folder!\r"
                          "Not to slow down icons listing time, sysem show only first 1000 icons\r"
                          "To show all icons, please separate icons in this folder, into different folder\r");
}

QString IconBase(const QString& appFolder) {
    return FindEntry(appFolder, QStringLiteral("Icons")) + u'/';
}

IconFolder ReadIconFolder(const QString& folder) {
    IconFolder icons{ListFiles(folder)};
    icons.TooMany = icons.Files.size() > kMostIcons;
    if (icons.TooMany)
        icons.Files.resize(kMostIcons);
    return icons;
}

bool IsIconFile(const QString& file) {
    return file.endsWith(QLatin1String("ico"), Qt::CaseInsensitive) ||
           file.endsWith(QLatin1String("png"), Qt::CaseInsensitive);
}

IconSheet LayOutIcons(const QStringList& files, int sheetWidth,
                      const std::function<int(const QString& caption)>& labelWidth) {
    IconSheet sheet;
    int x = kMargin;
    int y = kMargin;
    for (const QString& file : files) {
        if (x + kLabelOffset > sheetWidth) {
            x = kMargin;
            y += kIconRowHeight;
        }
        const int width = labelWidth(WithoutExtension(file));
        sheet.Icons.push_back({x, y, kIconSide, kIconSide});
        sheet.Labels.push_back(
            {x + kLabelOffset, y, std::max(0, std::min(width, sheetWidth - x - kLabelOffset)), kIconSide});
        x += kStep + width;
    }
    constexpr int kBelowLast = 600;
    sheet.Height = std::max(kSheetHeight, y + kBelowLast);
    return sheet;
}

int MoveOnSheet(const IconSheet& sheet, int now, SheetMove move) {
    const int last = int(sheet.Icons.size()) - 1;
    if (last < 0)
        return now;
    if (now < 0)
        return move == SheetMove::Last ? last : 0;
    const TwipsRect& icon = sheet.Icons[std::size_t(now)];
    const int rows = std::max(1, kSheetHeight / kIconRowHeight - 1) * kIconRowHeight;
    const auto atRow = [&](int top) {
        const int found =
            NearestInRow(sheet, std::clamp(top, sheet.Icons.front().Top, sheet.Icons.back().Top), icon.Left);
        return found < 0 ? now : found;
    };
    switch (move) {
    case SheetMove::Left:
        return std::max(now - 1, 0);
    case SheetMove::Right:
        return std::min(now + 1, last);
    case SheetMove::Up:
        return atRow(icon.Top - kIconRowHeight);
    case SheetMove::Down:
        return atRow(icon.Top + kIconRowHeight);
    case SheetMove::PageUp:
        return atRow(icon.Top - rows);
    case SheetMove::PageDown:
        return atRow(icon.Top + rows);
    case SheetMove::First:
        return 0;
    case SheetMove::Last:
        break;
    }
    return last;
}

} // namespace paneda
