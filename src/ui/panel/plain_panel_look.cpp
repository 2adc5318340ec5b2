#include "ui/panel/plain_panel_look.h"

#include "skin/plain_look.h"
#include "ui/panel/button_icons.h"

namespace paneda {

PlainPanelLook::PlainPanelLook(const AppState& state, FileIcons& icons, DriveSpace& space)
    : state_(state), icons_(icons), drives_(state, space) {}

PanelMetrics PlainPanelLook::Metrics() const {
    return PlainMetrics();
}

void PlainPanelLook::SetGeometry(const PanelGeometry& geometry) {
    geometry_ = &geometry;
}

QImage PlainPanelLook::Picture(int category) {
    return PaintPlainPanel(
        state_.Catalogue, *geometry_, OpenCategory(*geometry_, category),
        [this](const ButtonEntry& button, const IconSize& size) {
            return ButtonIcon(button, size, state_, icons_);
        },
        ratio_);
}

std::vector<QRect> PlainPanelLook::FrameAreas() const {
    const FrameMargins& margins = geometry_->Metrics.Margins;
    const int width = geometry_->PanelWidth;
    const int height = geometry_->PanelHeight;
    std::vector<QRect> areas;
    for (const TwipsRect& side :
         {TwipsRect{0, 0, width, margins.Top}, TwipsRect{0, height - margins.Bottom, width, margins.Bottom},
          TwipsRect{0, 0, margins.Left, height}, TwipsRect{width - margins.Right, 0, margins.Right, height}})
        areas.push_back(ToPixels(side));
    return areas;
}

QRect PlainPanelLook::HideArea() const {
    return PlainChromeOf(*geometry_).Hide;
}

QRect PlainPanelLook::MenuArea() const {
    return PlainChromeOf(*geometry_).Menu;
}

} // namespace paneda
