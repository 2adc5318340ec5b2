#pragma once

#include "platform/compositor.h"

namespace paneda {

// Always active: the system blends a layered window by its alpha even if the desktop is not composited.
class LayeredCompositor : public Compositor {
public:
    bool IsActive() override { return true; }
    void SetShape(QWindow& window, const QRegion& pixels) override;
};

} // namespace paneda
