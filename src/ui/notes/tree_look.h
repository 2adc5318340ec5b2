#pragma once

#include "notes/recent_change.h"
#include "notes/tree_node.h"
#include "ui/common/scroll_pictures.h"

#include <QColor>
#include <QImage>
#include <QString>

#include <optional>

namespace paneda {

// What a skin gives to a tree.
struct TreeLook {
    QColor Background;
    QColor Label;
    QColor Highlight;
    QColor HighlightLabel;
    // Grounds of the strips of shortcuts and favorites. Empty: a line below the text, or a row of points.
    ScrollPicture Shortcut;
    ScrollPicture Favorite;
    ScrollBarPictures ScrollBar;
    QString Family;      // of the text
    QString SmallFamily; // of the numbers of recent changes
};

// `skinPath`: the skin's host folder; empty for the built-in look. Pictures that cannot be read are missing.
TreeLook LoadTreeLook(const QString& skinPath);

// Width of a row's text in layout pixels, as a screen of this ratio shows it.
double RowTextWidth(const QString& name, const TreeLook& look, double ratio);

struct StripWish {
    const TreeNode& Node;
    int Width = 0; // twips
    bool IsSelected = false;
    std::optional<RecentChange> Change = {};
    int IndicatorLeft = 0; // twips
};

// A row's strip, in device pixels of that ratio.
QImage PaintStrip(const StripWish& wish, const TreeLook& look, double ratio);

// The pictures of notes and favorites without one of their own, and of shortcuts whose target has none: 16 by
// 16 layout pixels.
enum class NodeSign { Note, Shortcut, Favorite };
QImage PaintNodeSign(NodeSign sign, double ratio);

// The box of a branch, with a minus when it is open: 16 by 16 layout pixels.
QImage PaintBranchBox(bool isOpen, const TreeLook& look, double ratio);

} // namespace paneda
