#include "ui/panel/screen_metrics.h"

#include <QGuiApplication>
#include <QScreen>

namespace paneda {

ScreenMetrics CurrentScreenMetrics() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return {};
    const QRect all = screen->geometry();
    const QRect work = screen->availableGeometry();
    return {PixelsToTwips(all.x() + all.width()), PixelsToTwips(all.y() + all.height()),
            PixelsToTwips(work.y() + work.height())};
}

int CurrentColourDepth() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->depth() : 0;
}

std::vector<WorkArea> CurrentWorkAreas() {
    std::vector<WorkArea> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect work = screen->availableGeometry();
        areas.push_back({PixelsToTwips(work.x()), PixelsToTwips(work.y()),
                         PixelsToTwips(work.x() + work.width()), PixelsToTwips(work.y() + work.height())});
    }
    return areas;
}

WorkArea WorkAreaAt(WindowPlace point) {
    return NearestArea(CurrentWorkAreas(), point);
}

} // namespace paneda
