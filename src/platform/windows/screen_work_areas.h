#pragma once

#include "platform/work_areas.h"

#include <QScreen>

namespace paneda {

// As Qt has them: it asks the system anew whenever that says that they have changed, and turns them into the
// coordinates of windows.
class ScreenWorkAreas : public WorkAreas {
public:
    QRect Of(const QScreen& screen) override { return screen.availableGeometry(); }
};

} // namespace paneda
