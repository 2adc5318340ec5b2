#include "ui/common/place_beside.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace paneda {

namespace {

// Pixels that a title bar may take; a window's real frame is not known before it is shown.
constexpr int kTitleBar = 32;
// Those that the title and the borders of a dialog may need at most.
constexpr QSize kFrameOfDialog(40, 60);

} // namespace

void PlaceBeside(QWidget& window, int mode, int extra, const PlaceScene& scene) {
    const QRect frame = window.frameGeometry();
    const TwipsRect rect{PixelsToTwips(frame.x()), PixelsToTwips(frame.y()), PixelsToTwips(frame.width()),
                         PixelsToTwips(frame.height())};
    const PlacedWindow placed = PlaceWindow(rect, mode, extra, scene);
    window.move(TwipsToPixels(placed.Place.Left), TwipsToPixels(placed.Place.Top));
}

void PlaceDialog(QWidget& dialog, const PlaceScene& scene) {
    constexpr int kCentred = 1;
    constexpr int kGapToPanel = 150; // twips
    PlaceBeside(dialog, kCentred, kGapToPanel, scene);
}

QSize RoomForDialog(const PlaceScene& scene) {
    return QSize(TwipsToPixels(scene.Screen.Width),
                 TwipsToPixels(scene.WorkAreaBottom - scene.ScreenOrigin.Top)) -
           kFrameOfDialog;
}

void PlaceAtPoint(QWidget& window, const QPoint& point) {
    const QScreen* screen = QGuiApplication::screenAt(point);
    const QRect area = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    window.move(HeldBetween(point.x(), window.width(), area.left(), area.left() + area.width()),
                HeldBetween(point.y(), window.height() + kTitleBar, area.top(), area.top() + area.height()));
}

void PlaceNextTo(QWidget& window, const QWidget& other, int gap) {
    const QRect place = other.frameGeometry();
    const QPoint right(place.right() + 1 + gap, place.top());
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    const QRect area = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    const bool fits = right.x() + window.width() <= area.left() + area.width();
    // A point on the other window's screen, so that it is held there.
    PlaceAtPoint(
        window, fits ? right : QPoint(std::max(place.left() - gap - window.width(), area.left()), right.y()));
}

} // namespace paneda
