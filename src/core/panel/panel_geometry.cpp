#include "core/panel/panel_geometry.h"

#include "core/store/style_code.h"
#include "core/text/text_rules.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace paneda {

namespace {

constexpr int kScreenReserve = 300;      // kept free of the screen's height
constexpr int kMinHeightWithTree = 1800; // without bars
constexpr int kHeaderGap = 60;
constexpr int kUpperLaneOffset = -15;
constexpr int kLowerLaneOffset = 255;

// At most what the screen can show; what is not a number counts as the narrowest width.
double HeldButtonsPerRow(const LayoutInput& input) {
    const int room = input.Screen.Width - input.Metrics.Margins.Left - input.Metrics.Margins.Right - kUnitGap;
    const double widest = std::max(std::floor(double(room) / kUnitStep), 1.0);
    return input.ButtonsPerRow >= kFewestButtonsPerRow ? std::min(input.ButtonsPerRow, widest)
                                                       : kFewestButtonsPerRow;
}

int CountRows(const GroupEntry& group, double buttonsPerRow) {
    RowPacker packer(buttonsPerRow);
    int rows = 1;
    for (const ButtonEntry& button : group.Buttons) {
        const double units = ButtonWidthUnits(button.Style, buttonsPerRow);
        if (packer.Add(units, ButtonHeight(button.Style) == kHalfUnit).NewRow)
            ++rows;
    }
    return rows;
}

// A store may hold more than has room in an int.
int OnPanel(qint64 twips) {
    return int(std::clamp<qint64>(twips, range::kPlace.Lowest, range::kPlace.Highest));
}

int HeightOf(const CategoryEntry& category, double buttonsPerRow, const PanelMetrics& metrics) {
    qint64 height = metrics.Margins.Top + metrics.Margins.Bottom;
    height += qint64(category.Groups.size()) * (metrics.GroupHeaderHeight + kHeaderGap);
    for (const GroupEntry& group : category.Groups)
        height += qint64(CountRows(group, buttonsPerRow)) * kUnitStep;
    return OnPanel(height);
}

qint64 BarsHeight(const PanelMetrics& metrics, std::size_t bars) {
    return qint64(metrics.CategoryBarHeight) * qint64(bars);
}

// A panel higher than the work area would hide its bars behind a dock, or its top beyond the screen.
int HighestPanel(const ScreenMetrics& screen) {
    return std::min(screen.Height - kScreenReserve, screen.WorkAreaBottom - screen.WorkAreaTop);
}

int PanelHeightOf(const CatalogueList& catalogue, const LayoutInput& input, double buttonsPerRow) {
    int height = input.Metrics.Margins.Top + input.Metrics.Margins.Bottom;
    bool hasTree = false;
    for (const CategoryEntry& category : catalogue) {
        height = std::max(height, HeightOf(category, buttonsPerRow, input.Metrics));
        hasTree = hasTree || category.IsTree();
    }
    if (hasTree)
        height = std::max(height, kMinHeightWithTree);
    height = OnPanel(height + BarsHeight(input.Metrics, catalogue.size()));
    return std::min(height, HighestPanel(input.Screen));
}

// One pixel to the left for a width with a half that starts on a whole unit, one to the right for a start on
// a half, so that two half-width buttons in one unit keep a gap between them.
int HalfUnitAdjust(double units, double place) {
    const auto hasFraction = [](double value) { return value != std::floor(value); };
    if (hasFraction(units) && !hasFraction(place))
        return -kTwipsPerPixel;
    return hasFraction(place) ? kTwipsPerPixel : 0;
}

int LaneOffset(bool halfHeight, bool lower) {
    if (!halfHeight)
        return 0;
    return lower ? kLowerLaneOffset : kUpperLaneOffset;
}

// Places the buttons from `y` on and returns where the next group begins.
int PlaceButtons(const GroupEntry& group, const PanelGeometry& geometry, int y, GroupGeometry& placed) {
    RowPacker packer(geometry.ButtonsPerRow);
    for (const ButtonEntry& button : group.Buttons) {
        const double units = ButtonWidthUnits(button.Style, geometry.ButtonsPerRow);
        const int height = ButtonHeight(button.Style);
        const bool half = height == kHalfUnit;
        const RowPacker::Place place = packer.Add(units, half);
        if (place.NewRow)
            y = OnPanel(y + kUnitStep);
        const double left = geometry.Metrics.Margins.Left + RoundHalfEven(place.Unit + 0.9) * kUnitGap +
                            place.Unit * kUnit + HalfUnitAdjust(units, place.Unit);
        const TwipsRect rect{RoundHalfEven(left), y + LaneOffset(half, place.Lower),
                             ButtonWidthTwips(button.Style, geometry.ButtonsPerRow), height};
        placed.Buttons.push_back({button.ControlIndex, rect});
    }
    return group.Buttons.empty() ? y : OnPanel(y + kUnitStep);
}

void PlaceGroups(const CategoryEntry& category, const PanelGeometry& geometry, CategoryGeometry& placed) {
    const PanelMetrics& metrics = geometry.Metrics;
    int y = metrics.Margins.Top;
    for (const GroupEntry& group : category.Groups) {
        GroupGeometry& target = placed.Groups.emplace_back();
        target.ControlIndex = group.ControlIndex;
        target.Header = {metrics.Margins.Left, y, geometry.InnerWidth(), metrics.GroupHeaderHeight};
        y = PlaceButtons(group, geometry, OnPanel(y + metrics.GroupHeaderHeight + kHeaderGap), target);
    }
}

void PlaceWindowInside(const LayoutInput& input, PanelGeometry& geometry) {
    geometry.PanelTop = input.SavedTop + geometry.PanelHeight > input.Screen.WorkAreaBottom
                            ? input.Screen.WorkAreaBottom - geometry.PanelHeight
                            : input.SavedTop;
    geometry.PanelLeft = input.SavedLeft + geometry.PanelWidth > input.Screen.Width
                             ? input.Screen.Width - geometry.PanelWidth
                             : input.SavedLeft;
}

} // namespace

RowPacker::Place RowPacker::Add(double units, bool halfHeight) {
    Place place;
    if (halfHeight) {
        place.Lower = lower_ < upper_;
        double& lane = place.Lower ? lower_ : upper_;
        place.Unit = lane;
        lane += units;
    } else {
        place.Unit = std::max(upper_, lower_);
        upper_ = lower_ = place.Unit + units;
    }
    if (upper_ > buttonsPerRow_ || lower_ > buttonsPerRow_) {
        upper_ = units;
        lower_ = halfHeight ? 0 : units;
        place = {0, false, true};
    }
    return place;
}

PanelGeometry LayoutPanel(const CatalogueList& catalogue, const LayoutInput& input) {
    PanelGeometry geometry;
    geometry.ButtonsPerRow = HeldButtonsPerRow(input);
    geometry.Metrics = input.Metrics;
    const FrameMargins& margins = input.Metrics.Margins;
    geometry.PanelHeight = PanelHeightOf(catalogue, input, geometry.ButtonsPerRow);
    geometry.PanelWidth =
        margins.Left + margins.Right + RoundHalfEven(geometry.ButtonsPerRow * kUnitStep) + kUnitGap;
    PlaceWindowInside(input, geometry);
    const qint64 barsBottom = geometry.PanelHeight - margins.Bottom;
    geometry.BarsTop = OnPanel(barsBottom - BarsHeight(input.Metrics, catalogue.size()));
    geometry.GroupsAreaHeight = geometry.BarsTop - margins.Top;
    for (const CategoryEntry& category : catalogue) {
        const std::size_t below = catalogue.size() - geometry.Categories.size();
        CategoryGeometry& placed = geometry.Categories.emplace_back();
        placed.Bar = {margins.Left, OnPanel(barsBottom - BarsHeight(input.Metrics, below)),
                      geometry.InnerWidth(), input.Metrics.CategoryBarHeight};
        PlaceGroups(category, geometry, placed);
    }
    return geometry;
}

OpenedCategory OpenCategory(const PanelGeometry& geometry, int index) {
    OpenedCategory opened;
    opened.Index = std::min(index, int(geometry.Categories.size()) - 1);
    if (opened.Index < 0)
        return opened;
    const std::vector<GroupGeometry>& groups = geometry.Categories[std::size_t(opened.Index)].Groups;
    const int top = geometry.Metrics.Margins.Top;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (groups[i].Header.Top - top + geometry.Metrics.CategoryBarHeight < geometry.GroupsAreaHeight)
            opened.Headers.push_back(int(i));
        for (std::size_t k = 0; k < groups[i].Buttons.size(); ++k) {
            if (groups[i].Buttons[k].Rect.Bottom() < top + geometry.GroupsAreaHeight)
                opened.Buttons.emplace_back(int(i), int(k));
        }
    }
    return opened;
}

} // namespace paneda
