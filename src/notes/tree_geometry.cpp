#include "notes/tree_geometry.h"

#include "notes/tree_model.h"

#include <algorithm>
#include <cmath>

namespace paneda {

namespace {

constexpr int kSign = 240; // of an icon and of the picture of an expand box
constexpr int kFirstBoxLeft = 15;
constexpr int kStripRise = 15;     // above the row's top
constexpr int kIndicatorEnd = 255; // of the indicator, from its left

} // namespace

TreeRowPlace PlaceOfRow(int position, int level, bool boxWasLoaded, int strip) {
    const int top = TreeModel::RowTop(position);
    const int icon = TreeModel::IconLeft(level);
    const int box = boxWasLoaded && level == 0 ? kFirstBoxLeft : icon - TreeModel::IconOffset;
    return {{box, top, kSign, kSign},
            {icon, top, kSign, kSign},
            {icon + TreeModel::IconOffset, top - kStripRise, strip, TreeModel::RowHeight}};
}

int StripWidth(double textPixels, bool hasIndicator) {
    return PixelsToTwips(int(std::ceil(textPixels))) + (hasIndicator ? kIndicatorRoom : 0);
}

int IndicatorLeft(int strip, int stripLeft, int viewWidth) {
    const int left = strip - kIndicatorRoom;
    const int rightEdge = viewWidth - kIndicatorRoom;
    return left - std::max(left + stripLeft + kIndicatorEnd - rightEdge, 0);
}

IndicatorPlace PlaceOfIndicator(int left, int number) {
    constexpr int kTwoDigits = 10;
    return {{left + 45, 75, 210, 140},
            {left + 60, 90, 180, 110},
            number < kTwoDigits ? left + 105 : left + 60,
            75};
}

int TreeView::CanvasHeight() const {
    const int rows = TreeModel::RowTop(std::max(Rows - 1, 0)) + TreeModel::RowHeight;
    return std::max(rows, Height);
}

int TreeView::MostScrolled() const {
    return CanvasHeight() - Height;
}

std::pair<int, int> TreeView::SeenRows(int scrolled) const {
    const int first = (scrolled - TreeModel::TopMargin + kStripRise) / TreeModel::RowHeight;
    const int last = (scrolled + Height - TreeModel::TopMargin + kStripRise) / TreeModel::RowHeight;
    return {std::max(first, 0), std::min(last, Rows - 1)};
}

int TreeView::PositionAt(int canvasTop) const {
    const int from = canvasTop - TreeModel::TopMargin + kStripRise;
    const int position = from < 0 ? -1 : from / TreeModel::RowHeight;
    return position < Rows ? position : -1;
}

int TreeView::ScrolledTo(int position, int scrolled) const {
    const int top = TreeModel::RowTop(position) - TreeModel::TopMargin;
    const int bottom = TreeModel::RowTop(position) + TreeModel::RowHeight;
    const int wanted = std::min(std::max(scrolled, bottom - Height), top);
    return std::clamp(wanted, 0, MostScrolled());
}

int TreeView::PageRows() const {
    return std::max(Height / TreeModel::RowHeight, 1);
}

DropGoal DropGoalAt(const TreeNodeList& nodes, int canvasTop) {
    const int position = TreeView{int(nodes.size()), 0}.PositionAt(canvasTop);
    if (position < 0) {
        int last = int(nodes.size()) - 1;
        while (last > 0 && nodes[std::size_t(last)].Level > 0)
            --last;
        const bool isAbove = !nodes.empty() && canvasTop < TreeModel::TopMargin;
        return isAbove ? DropGoal{0, NodePosition::Above} : DropGoal{last, NodePosition::Below};
    }
    constexpr int kEdge = TreeModel::RowHeight / 4;
    const int within = canvasTop - (TreeModel::RowTop(position) - kStripRise);
    if (within < kEdge)
        return {position, NodePosition::Above};
    const bool isBelow = within >= TreeModel::RowHeight - kEdge &&
                         nodes[std::size_t(position)].ExpandState != BranchState::Expanded;
    return {position, isBelow ? NodePosition::Below : NodePosition::Child};
}

} // namespace paneda
