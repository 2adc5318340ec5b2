#pragma once

#include "platform/compositor.h"

namespace paneda {

// Active if the screen's compositing manager selection has an owner.
class X11Compositor : public Compositor {
public:
    bool IsActive() override;
    void SetShape(QWindow& window, const QRegion& pixels) override;
};

} // namespace paneda
