#pragma once

#include "core/text/twips.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace paneda {

// The icons that come with the program, "<app>/Icons/<folder>/<file>", and how a folder of them is laid out
// on a sheet. All paths are host paths, all measures twips.

// Of a folder with more files only the first ones are shown.
inline constexpr int kMostIcons = 1200;

// The notice about such a folder; its lines end with carriage returns.
QString TooManyIconsText();

// "<app>/Icons/", with a separator at its end.
QString IconBase(const QString& appFolder);

struct IconFolder {
    QStringList Files; // in byte order, at most kMostIcons
    bool TooMany = false;
};

IconFolder ReadIconFolder(const QString& folder);

// Whether a file of the library is shown as a picture: "ico" and "png", in any case of letters. Any other one
// has its place and its caption alone.
bool IsIconFile(const QString& file);

inline constexpr int kIconSide = 240;      // of a thumbnail
inline constexpr int kSheetHeight = 4935;  // of the visible part
inline constexpr int kIconRowHeight = 450; // from one row to the next

struct IconSheet {
    std::vector<TwipsRect> Icons; // the thumbnail of each file
    std::vector<TwipsRect> Labels;
    int Height = kSheetHeight; // of the whole sheet

    // Farthest place of the visible part's top.
    int Range() const { return Height - kSheetHeight; }
};

// Places files on a sheet, row by row. A row ends when there is no more room for a thumbnail; a caption that
// is longer than its row is cut there. `labelWidth`: of a caption.
IconSheet LayOutIcons(const QStringList& files, int sheetWidth,
                      const std::function<int(const QString& caption)>& labelWidth);

enum class SheetMove { Left, Right, Up, Down, First, Last, PageUp, PageDown };

// The icon that a key leads to; `now` if there is none. Up and Down keep to the nearest icon of the row.
int MoveOnSheet(const IconSheet& sheet, int now, SheetMove move);

} // namespace paneda
