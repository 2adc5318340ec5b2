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

} // namespace paneda
