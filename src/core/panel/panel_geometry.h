#pragma once

#include "core/store/catalogue.h"
#include "core/text/ranges.h"

#include <vector>

namespace paneda {

// Inner margins of the panel's frame, in twips.
struct FrameMargins {
    int Top = 0;
    int Left = 0;
    int Bottom = 0;
    int Right = 0;
};

// What the look of the panel gives to its layout, in twips.
struct PanelMetrics {
    FrameMargins Margins;
    int GroupHeaderHeight = 0;
    int CategoryBarHeight = 0;
};

// The screen that the panel is laid out for, in twips from its top left corner.
struct ScreenMetrics {
    int Width = 0;
    int Height = 0;
    int WorkAreaBottom = 0;
    int WorkAreaTop = 0;
};

// The narrowest panel, in button units; any smaller number counts as this one.
inline constexpr double kFewestButtonsPerRow = range::kButtonsPerRow.Lowest;

// What the layout is made from besides the catalogue.
struct LayoutInput {
    double ButtonsPerRow = 5;
    PanelMetrics Metrics;
    ScreenMetrics Screen;
    int SavedLeft = 0; // twips
    int SavedTop = 0;  // twips
};

struct ButtonGeometry {
    int ControlIndex = 0;
    TwipsRect Rect;
};

struct GroupGeometry {
    int ControlIndex = 0;
    TwipsRect Header;
    std::vector<ButtonGeometry> Buttons;
};

struct CategoryGeometry {
    TwipsRect Bar;
    std::vector<GroupGeometry> Groups;
};

// Every rectangle of the panel, in twips from the window's top left corner. What lies far outside of every
// window, as in a category of thousands of groups, stands at the end of range::kPlace. Category i, its group
// j and its button k are those of the catalogue.
struct PanelGeometry {
    // The width that the layout was made for: the one in the settings, or less where the screen is too
    // narrow.
    double ButtonsPerRow = 5;
    PanelMetrics Metrics;
    int PanelLeft = 0;
    int PanelTop = 0;
    int PanelWidth = 0;
    int PanelHeight = 0;
    int BarsTop = 0;
    int GroupsAreaHeight = 0;
    std::vector<CategoryGeometry> Categories;

    int InnerWidth() const { return PanelWidth - Metrics.Margins.Left - Metrics.Margins.Right; }
};

PanelGeometry LayoutPanel(const CatalogueList& catalogue, const LayoutInput& input);

// Packs the buttons of one group into rows of two lanes, an upper and a lower one for half-height buttons.
// Takes one button after the other. Measures are units.
class RowPacker {
public:
    struct Place {
        double Unit = 0;     // from the left
        bool Lower = false;  // in the lower lane
        bool NewRow = false; // the button did not fit and opened a row
    };

    explicit RowPacker(double buttonsPerRow) : buttonsPerRow_(buttonsPerRow) {}

    Place Add(double units, bool halfHeight);

private:
    double buttonsPerRow_;
    double upper_ = 0;
    double lower_ = 0;
};

// What is on the panel, and can be pressed, while one category is open.
struct OpenedCategory {
    // The category; -1 if there is none.
    int Index = -1;
    // Subscripts of groups whose header is shown.
    std::vector<int> Headers;
    // Subscripts of group and button of each shown button.
    std::vector<std::pair<int, int>> Buttons;
};

// Opens a category; an index beyond the last means the last. What does not fit above the bars stays hidden.
OpenedCategory OpenCategory(const PanelGeometry& geometry, int index);

} // namespace paneda
