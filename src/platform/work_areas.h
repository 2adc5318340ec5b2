#pragma once

#include <QRect>

class QScreen;

namespace paneda {

// What the desktop's own panels and docks leave of its screens.
class WorkAreas {
public:
    virtual ~WorkAreas() = default;

    // In the coordinates of the screen's geometry; the whole screen where nothing is known.
    virtual QRect Of(const QScreen& screen) = 0;
};

} // namespace paneda
