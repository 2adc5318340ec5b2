#include "core/panel/window_places.h"

#include <QtGlobal>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kSnapDistance = 300;
constexpr int kEnoughToGrab = 300;

enum PlaceMode { kPlaceOnScreen = 1, kPlaceAtTop = 2, kPlaceOnPanel = 3 };

int PlacedLeft(const TwipsRect& window, int extra, const PlaceScene& scene) {
    const TwipsRect& panel = scene.Panel;
    const int screenLeft = scene.ScreenOrigin.Left;
    const bool panelIsRight = screenLeft + scene.Screen.Width / 2 < panel.Left + panel.Width / 2;
    const int left = panelIsRight ? panel.Left - window.Width - extra : panel.Right() + extra;
    return HeldBetween(left, window.Width, screenLeft, screenLeft + scene.Screen.Width);
}

int PlacedTop(const TwipsRect& window, int mode, const PlaceScene& scene) {
    const TwipsRect& panel = scene.Panel;
    const int lowest = scene.WorkAreaBottom - window.Height;
    const int screenTop = scene.ScreenOrigin.Top;
    switch (mode) {
    case kPlaceOnScreen:
        return screenTop + (scene.Screen.Height - window.Height) / 2;
    case kPlaceAtTop:
        return std::min(panel.Top, lowest);
    case kPlaceOnPanel:
        return std::min(std::max(panel.Top - (window.Height - panel.Height) / 2, screenTop), lowest);
    default:
        return window.Top;
    }
}

int SnappedBegin(int begin, int length, int low, int high) {
    const auto isNear = [](int distance) { return distance >= 0 && distance <= kSnapDistance; };
    if (isNear(begin - low))
        return low;
    return isNear(high - begin - length) ? high - length : begin;
}

// How far a point lies outside an area, squared.
qint64 DistanceTo(const WorkArea& area, WindowPlace point) {
    const qint64 x = point.Left - std::clamp(point.Left, area.Left, std::max(area.Left, area.Right - 1));
    const qint64 y = point.Top - std::clamp(point.Top, area.Top, std::max(area.Top, area.Bottom - 1));
    return x * x + y * y;
}

bool CanBeGrabbed(WindowPlace place, TwipsSize panel, const WorkArea& area) {
    const int width = std::min(place.Left + panel.Width, area.Right) - std::max(place.Left, area.Left);
    return width >= std::min(kEnoughToGrab, panel.Width) && place.Top >= area.Top &&
           place.Top + std::min(kEnoughToGrab, panel.Height) <= area.Bottom;
}

} // namespace

int HeldBetween(int begin, int length, int low, int high) {
    begin = std::max(begin, low);
    return begin + length > high ? high - length : begin;
}

WindowPlace HeldToFarEdges(WindowPlace saved, TwipsSize panel, const WorkArea& area) {
    return {std::min(saved.Left, std::max(area.Right - panel.Width, area.Left)),
            std::min(saved.Top, std::max(area.Bottom - panel.Height, area.Top))};
}

WindowPlace SnapToEdges(const TwipsRect& panel, const WorkArea& area) {
    return {SnappedBegin(panel.Left, panel.Width, area.Left, area.Right),
            SnappedBegin(panel.Top, panel.Height, area.Top, area.Bottom)};
}

PlacedWindow PlaceWindow(const TwipsRect& window, int mode, int extra, const PlaceScene& scene) {
    const WindowPlace place{PlacedLeft(window, extra, scene), PlacedTop(window, mode, scene)};
    if (mode != kPlaceOnPanel)
        return {place, BorderLabel::AsItIs};
    return {place, place.Left > scene.Panel.Left ? BorderLabel::Right : BorderLabel::Left};
}

WorkArea NearestArea(const std::vector<WorkArea>& areas, WindowPlace point) {
    const auto nearest =
        std::min_element(areas.begin(), areas.end(), [point](const WorkArea& a, const WorkArea& b) {
            return DistanceTo(a, point) < DistanceTo(b, point);
        });
    return nearest == areas.end() ? WorkArea() : *nearest;
}

WindowPlace BringIntoView(WindowPlace saved, TwipsSize panel, const std::vector<WorkArea>& areas) {
    const bool isSeen = std::any_of(areas.begin(), areas.end(),
                                    [&](const WorkArea& area) { return CanBeGrabbed(saved, panel, area); });
    if (isSeen || areas.empty())
        return saved;
    const WindowPlace middle{saved.Left + panel.Width / 2, saved.Top + panel.Height / 2};
    const WorkArea area = NearestArea(areas, middle);
    // A panel larger than the area keeps its top left corner in view, where its handles are.
    return {std::max(std::min(saved.Left, area.Right - panel.Width), area.Left),
            std::max(std::min(saved.Top, area.Bottom - panel.Height), area.Top)};
}

} // namespace paneda
