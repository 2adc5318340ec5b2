#include "ui/panel/hit_areas.h"

#include <algorithm>

namespace paneda {

std::vector<HitArea> HitAreasOf(const std::vector<QRect>& frame, const PanelGeometry& geometry,
                                const OpenedCategory& opened) {
    std::vector<HitArea> areas;
    for (const QRect& piece : frame)
        areas.push_back({HitArea::Kind::Frame, -1, -1, -1, piece});
    for (std::size_t i = 0; i < geometry.Categories.size(); ++i)
        areas.push_back({HitArea::Kind::Bar, int(i), -1, -1, ToPixels(geometry.Categories[i].Bar)});
    if (opened.Index < 0)
        return areas;
    const std::vector<GroupGeometry>& groups = geometry.Categories[std::size_t(opened.Index)].Groups;
    for (const int group : opened.Headers)
        areas.push_back(
            {HitArea::Kind::Header, opened.Index, group, -1, ToPixels(groups[std::size_t(group)].Header)});
    for (const auto& [group, button] : opened.Buttons) {
        const ButtonGeometry& place = groups[std::size_t(group)].Buttons[std::size_t(button)];
        areas.push_back({HitArea::Kind::Button, opened.Index, group, button, ToPixels(place.Rect)});
    }
    return areas;
}

QString SignToolTip(HitArea::Kind area) {
    switch (area) {
    case HitArea::Kind::Hide:
        return QStringLiteral("Hide the panel");
    case HitArea::Kind::Menu:
        return QStringLiteral("Menu");
    case HitArea::Kind::Logo:
        return QStringLiteral("Paneda on the web");
    default:
        return {};
    }
}

HitArea HitTest(const std::vector<HitArea>& areas, const QPoint& point) {
    const auto found = std::find_if(areas.rbegin(), areas.rend(),
                                    [&point](const HitArea& area) { return area.Rect.contains(point); });
    return found == areas.rend() ? HitArea() : *found;
}

} // namespace paneda
