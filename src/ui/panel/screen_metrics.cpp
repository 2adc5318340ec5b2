#include "ui/panel/screen_metrics.h"

#include "platform/work_areas.h"

#include <QGuiApplication>
#include <QScreen>

namespace paneda {

namespace {

WorkArea AreaOf(const QRect& rect) {
    return {PixelsToTwips(rect.x()), PixelsToTwips(rect.y()), PixelsToTwips(rect.x() + rect.width()),
            PixelsToTwips(rect.y() + rect.height())};
}

ScreenMetrics MetricsOf(const QRect& all, const QRect& work) {
    return {PixelsToTwips(all.width()), PixelsToTwips(all.height()),
            PixelsToTwips(work.y() + work.height() - all.y()), PixelsToTwips(work.y() - all.y())};
}

const QScreen* NearestScreen(WindowPlace point) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    std::vector<WorkArea> wholes;
    for (const QScreen* screen : screens)
        wholes.push_back(AreaOf(screen->geometry()));
    const WorkArea nearest = NearestArea(wholes, point);
    for (std::size_t i = 0; i < wholes.size(); ++i) {
        if (wholes[i] == nearest)
            return screens[qsizetype(i)];
    }
    return nullptr;
}

} // namespace

ScreenMetrics CurrentScreenMetrics() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? MetricsOf(screen->geometry(), screen->availableGeometry()) : ScreenMetrics();
}

ScreenPlace ScreenAt(WorkAreas& areas, WindowPlace point) {
    const QScreen* screen = NearestScreen(point);
    if (!screen)
        return {};
    const QRect all = screen->geometry();
    return {{PixelsToTwips(all.x()), PixelsToTwips(all.y())},
            MetricsOf(all, areas.Of(*screen)),
            screen->devicePixelRatio()};
}

std::vector<WorkArea> CurrentWorkAreas(WorkAreas& areas) {
    std::vector<WorkArea> result;
    for (const QScreen* screen : QGuiApplication::screens())
        result.push_back(AreaOf(areas.Of(*screen)));
    return result;
}

WorkArea WorkAreaAt(WorkAreas& areas, WindowPlace point) {
    const QScreen* screen = NearestScreen(point);
    return screen ? AreaOf(areas.Of(*screen)) : WorkArea();
}

} // namespace paneda
