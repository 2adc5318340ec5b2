#pragma once

#include <QRect>

class QScreen;

namespace paneda {

// The part of each screen that the desktop's own panels and docks leave free.
class WorkAreas {
public:
    virtual ~WorkAreas() = default;

    // In the coordinates of the screen's geometry; the whole screen if the desktop does not say.
    virtual QRect Of(const QScreen& screen) = 0;
};

} // namespace paneda
