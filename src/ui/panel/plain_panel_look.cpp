#include "ui/panel/plain_panel_look.h"

#include "skin/plain_look.h"
#include "ui/panel/button_icons.h"

namespace paneda {

PlainPanelLook::PlainPanelLook(const AppState& state, FileIcons& icons) : state_(state), icons_(icons) {}

PanelMetrics PlainPanelLook::Metrics() const {
    return PlainMetrics();
}

void PlainPanelLook::SetGeometry(const PanelGeometry& geometry) {
    geometry_ = &geometry;
}

QImage PlainPanelLook::Picture(int category) {
    return PaintPlainPanel(
        state_.Catalogue, *geometry_, OpenCategory(*geometry_, category),
        [this](const ButtonEntry& button, int pixels) { return ButtonIcon(button, pixels, state_, icons_); });
}

QRect PlainPanelLook::HideArea() const {
    return PlainChromeOf(*geometry_).Hide;
}

QRect PlainPanelLook::MenuArea() const {
    return PlainChromeOf(*geometry_).Menu;
}

} // namespace paneda
