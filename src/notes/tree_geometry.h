#pragma once

#include "core/text/twips.h"
#include "notes/tree_node.h"

#include <utility>

namespace paneda {

// Where the parts of a tree lie. All measures are twips; the canvas holds all rows and is as high as they
// are, the view is the part of it that is seen.

// What a strip is wider than its text where it shows a recent change.
inline constexpr int kIndicatorRoom = 250;

struct TreeRowPlace {
    TwipsRect Box;   // plus or minus; on the canvas
    TwipsRect Icon;  // 16 by 16 pixels
    TwipsRect Strip; // the row's text
};

// The row at a position, counted from 0. `boxWasLoaded`: its expand box has been there since the tree was
// loaded, which puts the box of a node of the top level one pixel to the right. `strip` is the strip's width.
TreeRowPlace PlaceOfRow(int position, int level, bool boxWasLoaded, int strip);

// The strip's width for a text of so many pixels. A recent change needs more room.
int StripWidth(double textPixels, bool hasIndicator);

// The left of the indicator of a recent change, in a strip with this left. It is pulled into the text where
// it would not be seen; `viewWidth` is the width of the tree without its scroll bar.
int IndicatorLeft(int strip, int stripLeft, int viewWidth);

// Where the indicator's parts lie in the strip.
struct IndicatorPlace {
    TwipsRect Border;
    TwipsRect Box;
    int NumberLeft = 0;
    int NumberTop = 0;
};
IndicatorPlace PlaceOfIndicator(int left, int number);

enum class TreePart { Canvas, Box, Icon, Strip };

// The canvas as a view shows it.
struct TreeView {
    int Rows = 0;
    int Height = 0; // of the view

    int CanvasHeight() const;
    // The highest value of the scroll bar; 0 where all rows fit and it is hidden.
    int MostScrolled() const;
    // First and last position that is seen at least in part; the last is below the first without rows.
    std::pair<int, int> SeenRows(int scrolled) const;
    // The position at a place of the canvas, -1 for none. A row takes the room from its strip's top to that
    // of the next.
    int PositionAt(int canvasTop) const;
    // The value of the scroll bar that shows this row whole, as near to `scrolled` as possible.
    int ScrolledTo(int position, int scrolled) const;
    // How many rows a page holds, at least one.
    int PageRows() const;
};

// Where a file goes that is dropped on the canvas: between rows at their edges, else into the row.
struct DropGoal {
    int Position = -1; // of the row; -1 in an empty tree
    NodePosition Where = NodePosition::Below;

    friend bool operator==(const DropGoal&, const DropGoal&) = default;
};
// Behind the last row it comes to the end of the top level. What would come below an open branch becomes its
// last child, since it would not stand where it was dropped.
DropGoal DropGoalAt(const TreeNodeList& nodes, int canvasTop);

} // namespace paneda
