#pragma once

#include "platform/work_areas.h"

#include <QScreen>

namespace paneda {

// The work areas of Qt, which asks the system again when they change and converts them to the coordinates of
// windows.
class ScreenWorkAreas : public WorkAreas {
public:
    QRect Of(const QScreen& screen) override { return screen.availableGeometry(); }
};

} // namespace paneda
