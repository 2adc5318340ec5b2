#include "ui/common/place_beside.h"

#include <QWidget>

namespace paneda {

void PlaceBeside(QWidget& window, int mode, int extra, const PlaceScene& scene) {
    const QRect frame = window.frameGeometry();
    const TwipsRect rect{PixelsToTwips(frame.x()), PixelsToTwips(frame.y()), PixelsToTwips(frame.width()),
                         PixelsToTwips(frame.height())};
    const PlacedWindow placed = PlaceWindow(rect, mode, extra, scene);
    window.move(TwipsToPixels(placed.Place.Left), TwipsToPixels(placed.Place.Top));
}

} // namespace paneda
